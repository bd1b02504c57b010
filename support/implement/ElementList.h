#ifndef WRT_SUPPORT_ELEMENT_LIST_H
#define WRT_SUPPORT_ELEMENT_LIST_H

#include "support/implement/Collection.h"

namespace wrt::support {

/// Elements that are words: strings' handles or objects' references, which the list owns. Those
/// given out are owned by who asked. One that several share is `ElementList`.
struct Words {
  void **items = nullptr;
  uint32_t count = 0;
  uint32_t room = 0;

  /// False when memory runs out.
  bool insert(uint32_t index, void *word);
  void *remove(uint32_t index);
};

/// A copy of the word with a handle or reference of its own.
HRESULT copyWord(ElementKind kind, void *word, void **copy);
void disposeWord(ElementKind kind, void *word);
/// Strings by their characters, objects by their identity.
bool equalWords(ElementKind kind, void *left, void *right);
/// All of them, and their block.
void disposeWords(ElementKind kind, Words words);

/// What a collection keeps, shared by it and its iterators, which notice its changes. Any thread;
/// all members answer with statuses as the functions of collections do, and nothing is half done.
class ElementList {
public:
  /// +1, or null when memory runs out. Takes the words over.
  static ElementList *make(ElementKind kind, Words words);
  void retain();
  void release();

  HRESULT getAt(uint32_t index, void **item);
  HRESULT getSize(uint32_t *size);
  HRESULT indexOf(void *item, uint32_t *index, uint8_t *found);
  HRESULT getMany(uint32_t start, uint32_t capacity, void **items, uint32_t *actual);
  HRESULT setAt(uint32_t index, void *item);
  HRESULT insertAt(uint32_t index, void *item);
  HRESULT append(void *item);
  HRESULT removeAt(uint32_t index);
  HRESULT removeAtEnd();
  HRESULT replaceAll(uint32_t count, void *const *items);
  /// A list of its own with the elements of this moment, or null.
  ElementList *copy();

  /// For iterators: `position` is of a list with that `version`, and moves by what was read.
  uint32_t version();
  HRESULT read(uint32_t version, uint32_t *position, uint32_t capacity, void **items,
               uint32_t *actual);
  HRESULT hasElement(uint32_t version, uint32_t position, uint8_t *has);

private:
  class Locked;

  ElementKind kind_;
  Words words_;
  uint32_t version_;
  uint32_t references_;
  NSLock *lock_;
};

} // namespace wrt::support

#endif
