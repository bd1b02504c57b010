#ifndef WRT_SUPPORT_SEQUENCES_H
#define WRT_SUPPORT_SEQUENCES_H

#include "support/implement/CollectionTables.h"
#include "support/implement/ElementList.h"

#include <WRTStatus.h>

namespace wrt::support {

// Objects for the Windows Runtime over a list, each +1 or null when memory runs out; they take the
// caller's reference to the list over.

/// A vector that can be changed, and an iterable. `GetView` gives the elements of that moment.
abi::IInspectable *makeVector(const Collection &collection, ElementList *list);
/// A view, and an iterable.
abi::IInspectable *makeVectorView(const Collection &collection, ElementList *list);
/// From the first element on. When the list has changed since, every question is `E_CHANGED_STATE`.
IteratorTable<void *> *makeIterator(const Collection &collection, ElementList *list);
/// A map of strings that can be changed, over a list of pairs. Found by going through it: what an
/// application hands in is small.
abi::IInspectable *makeMap(const Collection &collection, ElementList *list);
/// A map that cannot be changed; as an iterable of pairs alone if the collection is one.
abi::IInspectable *makeMapView(const Collection &collection, ElementList *list);
/// A pair; takes over both words.
abi::IInspectable *makePair(const Collection &collection, void *key, void *value);

/// A new object over the list, which it takes over also when memory runs out: then it is null.
template <class Object>
Object *withList(const Collection &collection, ElementList *list) {
  auto *object = new Object(collection, list);
  if (!object)
    list->release();
  return object;
}

/// Answers an out-parameter with a new object of the layer.
template <class Table, class Object>
HRESULT answer(Object *object, Table **out) {
  *out = static_cast<Table *>(object);
  return object ? status::kOk : status::kOutOfMemory;
}

} // namespace wrt::support

#endif
