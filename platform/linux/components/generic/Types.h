/// The types that generic interfaces are instantiated with, as components name them:
///
///     Vector<String>, Map<String, Inspectable>, startAsync<UInt32>(...),
///     Vector<types::StorageFile>, Vector<Ref<abi::IStorageItem>>
///
/// bridgegen makes them, and the interfaces themselves, of the declarations: `types::` has the
/// enumerations, structures and classes, `Ref` stands for an interface. Each type tells how its
/// values cross interfaces (`Abi`), how components keep them (`Stored`, which owns what it keeps)
/// and how one becomes the other. Those whose values cannot be compared without calling somebody
/// have a `Key`, which a map keeps in their place.
///
/// An instance has an identifier, and so can be used, if a declaration names it or lists it as
/// `extern`, or comes with one that does.
#ifndef WRT_COMPONENTS_TYPES_H
#define WRT_COMPONENTS_TYPES_H

#include <abi/WRTFamilies.h>

namespace wrt::implement {

/// What iterating a map yields.
template <class K, class V>
using PairOf = Ref<IKeyValuePair<K, V>>;

} // namespace wrt::implement

#endif
