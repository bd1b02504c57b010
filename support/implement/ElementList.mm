#include "support/implement/ElementList.h"

#include <WRTBridge.h>
#include <WRTBridgeUtil.h>
#include <WRTStatus.h>
#include <stdlib.h>
#include <string.h>

namespace wrt::support {

bool Words::insert(uint32_t index, void *word) {
  if (count == room) {
    const uint32_t larger = room ? 2 * room : 8;
    void *block = larger > room ? realloc(items, size_t{larger} * sizeof(void *)) : nullptr;
    if (!block)
      return false;
    items = static_cast<void **>(block);
    room = larger;
  }
  memmove(items + index + 1, items + index, (count - index) * sizeof(void *));
  items[index] = word;
  ++count;
  return true;
}

void *Words::remove(uint32_t index) {
  void *word = items[index];
  --count;
  memmove(items + index, items + index + 1, (count - index) * sizeof(void *));
  return word;
}

HRESULT copyWord(ElementKind kind, void *word, void **copy) {
  *copy = nullptr;
  if (kind == ElementKind::String) {
    HSTRING string = nullptr;
    const HRESULT status = WRTHSTRINGDuplicate(static_cast<HSTRING>(word), &string);
    // What comes along with a failure is no handle.
    if (status >= 0)
      *copy = string;
    return status;
  }
  if (word)
    WRTIUnknownAddRef(word);
  *copy = word;
  return status::kOk;
}

void disposeWord(ElementKind kind, void *word) {
  if (kind == ElementKind::String)
    WRTHSTRINGRelease(static_cast<HSTRING>(word));
  else
    WRTIUnknownSafeRelease(word);
}

void disposeWords(ElementKind kind, Words words) {
  for (uint32_t i = 0; i < words.count; ++i)
    disposeWord(kind, words.items[i]);
  free(words.items);
}

namespace {

/// The object's identity, borrowed: it lives as long as the object.
void *identityOf(void *object) {
  const GUID iid = WRTIUnknownGetUUID();
  void *identity = nullptr;
  if (!object || WRTIUnknownQueryInterface(object, &iid, &identity) < 0 || !identity)
    return object;
  WRTIUnknownRelease(identity);
  return identity;
}

HRESULT copyWords(ElementKind kind, uint32_t count, void *const *from, Words *copies) {
  for (uint32_t i = 0; i < count; ++i) {
    void *copy = nullptr;
    HRESULT status = copyWord(kind, from[i], &copy);
    if (status >= 0 && !copies->insert(i, copy)) {
      disposeWord(kind, copy);
      status = status::kOutOfMemory;
    }
    if (status < 0) {
      disposeWords(kind, *copies);
      *copies = {};
      return status;
    }
  }
  return status::kOk;
}

} // namespace

bool equalWords(ElementKind kind, void *left, void *right) {
  if (left == right)
    return true;
  if (kind != ElementKind::String)
    return identityOf(left) == identityOf(right);
  NSString *first = WRTHSTRINGToCFString(static_cast<HSTRING>(left));
  NSString *second = WRTHSTRINGToCFString(static_cast<HSTRING>(right));
  const bool areEqual = [first isEqualToString:second];
  [first release];
  [second release];
  return areEqual;
}

class ElementList::Locked {
public:
  explicit Locked(ElementList *list) : lock_(list->lock_) { [lock_ lock]; }
  Locked(const Locked &) = delete;
  Locked &operator=(const Locked &) = delete;
  ~Locked() { [lock_ unlock]; }

private:
  NSLock *lock_;
};

ElementList *ElementList::make(ElementKind kind, Words words) {
  auto *list = static_cast<ElementList *>(calloc(1, sizeof(ElementList)));
  if (!list) {
    disposeWords(kind, words);
    return nullptr;
  }
  list->kind_ = kind;
  list->words_ = words;
  list->references_ = 1;
  list->lock_ = [[NSLock alloc] init];
  return list;
}

void ElementList::retain() { __atomic_add_fetch(&references_, 1, __ATOMIC_RELAXED); }

void ElementList::release() {
  if (__atomic_sub_fetch(&references_, 1, __ATOMIC_ACQ_REL) != 0)
    return;
  disposeWords(kind_, words_);
  [lock_ release];
  free(this);
}

HRESULT ElementList::getAt(uint32_t index, void **item) {
  if (!item)
    return status::kPointer;
  *item = nullptr;
  const Locked locked(this);
  return index < words_.count ? copyWord(kind_, words_.items[index], item) : status::kBounds;
}

HRESULT ElementList::getSize(uint32_t *size) {
  if (!size)
    return status::kPointer;
  const Locked locked(this);
  *size = words_.count;
  return status::kOk;
}

HRESULT ElementList::indexOf(void *item, uint32_t *index, uint8_t *found) {
  if (!index || !found)
    return status::kPointer;
  *index = 0;
  *found = 0;
  Words words;
  {
    const Locked locked(this);
    if (const HRESULT status = copyWords(kind_, words_.count, words_.items, &words); status < 0)
      return status;
  }
  // Objects are asked who they are behind the lock: what they do then is theirs.
  for (uint32_t i = 0; i < words.count && !*found; ++i) {
    if (equalWords(kind_, words.items[i], item)) {
      *index = i;
      *found = 1;
    }
  }
  disposeWords(kind_, words);
  return status::kOk;
}

HRESULT ElementList::read(uint32_t version, uint32_t *position, uint32_t capacity, void **items,
                          uint32_t *actual) {
  if (!actual || (!items && capacity != 0))
    return status::kPointer;
  *actual = 0;
  const Locked locked(this);
  if (version != version_)
    return status::kChangedState;
  const uint32_t left = words_.count - *position;
  const uint32_t count = capacity < left ? capacity : left;
  for (uint32_t i = 0; i < count; ++i) {
    const HRESULT status = copyWord(kind_, words_.items[*position + i], &items[i]);
    if (status < 0) {
      while (i-- > 0)
        disposeWord(kind_, items[i]);
      return status;
    }
  }
  *position += count;
  *actual = count;
  return status::kOk;
}

HRESULT ElementList::getMany(uint32_t start, uint32_t capacity, void **items, uint32_t *actual) {
  uint32_t size = 0;
  const uint32_t now = version();
  getSize(&size);
  return start > size ? status::kBounds : read(now, &start, capacity, items, actual);
}

HRESULT ElementList::hasElement(uint32_t version, uint32_t position, uint8_t *has) {
  if (!has)
    return status::kPointer;
  *has = 0;
  const Locked locked(this);
  if (version != version_)
    return status::kChangedState;
  *has = position < words_.count;
  return status::kOk;
}

uint32_t ElementList::version() {
  const Locked locked(this);
  return version_;
}

// What is taken out is dropped behind the lock: its last reference may do anything.

HRESULT ElementList::setAt(uint32_t index, void *item) {
  void *word = nullptr;
  HRESULT status = copyWord(kind_, item, &word);
  if (status < 0)
    return status;
  {
    const Locked locked(this);
    if (index < words_.count) {
      void *old = words_.items[index];
      words_.items[index] = word;
      word = old;
      ++version_;
    } else {
      status = status::kBounds;
    }
  }
  disposeWord(kind_, word);
  return status;
}

HRESULT ElementList::insertAt(uint32_t index, void *item) {
  void *word = nullptr;
  HRESULT status = copyWord(kind_, item, &word);
  if (status < 0)
    return status;
  {
    const Locked locked(this);
    if (index == UINT32_MAX)
      index = words_.count;
    status = index > words_.count          ? status::kBounds
             : !words_.insert(index, word) ? status::kOutOfMemory
                                           : status::kOk;
    if (status >= 0)
      ++version_;
  }
  if (status < 0)
    disposeWord(kind_, word);
  return status;
}

HRESULT ElementList::append(void *item) { return insertAt(UINT32_MAX, item); }

HRESULT ElementList::removeAt(uint32_t index) {
  void *word = nullptr;
  {
    const Locked locked(this);
    if (index >= words_.count)
      return status::kBounds;
    word = words_.remove(index);
    ++version_;
  }
  disposeWord(kind_, word);
  return status::kOk;
}

HRESULT ElementList::removeAtEnd() {
  uint32_t size = 0;
  getSize(&size);
  return removeAt(size - 1);
}

HRESULT ElementList::replaceAll(uint32_t count, void *const *items) {
  if (!items && count != 0)
    return status::kPointer;
  Words words;
  const HRESULT status = copyWords(kind_, count, items, &words);
  if (status < 0)
    return status;
  {
    const Locked locked(this);
    const Words old = words_;
    words_ = words;
    words = old;
    ++version_;
  }
  disposeWords(kind_, words);
  return status::kOk;
}

ElementList *ElementList::copy() {
  Words words;
  {
    const Locked locked(this);
    if (copyWords(kind_, words_.count, words_.items, &words) < 0)
      return nullptr;
  }
  return make(kind_, words);
}

} // namespace wrt::support
