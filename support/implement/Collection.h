#ifndef WRT_SUPPORT_COLLECTION_H
#define WRT_SUPPORT_COLLECTION_H

#import <Foundation/Foundation.h>
#include <WRTObjcBridge/WRTTypes.h>

namespace wrt::support {

enum class Family { Vector, VectorView, Iterable, Map, MapView };

/// How an element crosses.
enum class ElementKind {
  None,   ///< the key of what has none
  String, ///< an owned handle
  Object, ///< an owned reference
  Int32,  ///< also enumerations
  Guid,
  Other ///< structures, which the layer does not offer
};

struct Element {
  ElementKind kind;
  const char *bridge; ///< the class of an object's bridge
  GUID iid;           ///< the interface as which an object crosses
};

/// A bridged instance of a collection's interface. The elements of maps are pairs of key and value,
/// which their iterators yield; so are those of iterables that have a key.
struct Collection {
  const char *bridge; ///< its class, and its protocol
  Family family;
  GUID iid;
  GUID iterable, iterator; ///< of its elements
  GUID view;               ///< `IVectorView` or `IMapView` of the same
  GUID pair;               ///< `IKeyValuePair` of the same
  Element key;
  Element value;

  bool hasPairs() const { return key.kind != ElementKind::None; }
  /// The method of bridges that gives the interface.
  SEL accessor() const;
};

/// The collection that objects of a bridge's class are read as, or null for a class that has none:
/// vectors and views come before maps, and maps before iterables. Any thread.
const Collection *collectionOf(Class bridge);
/// The collection of that name, or null.
const Collection *collectionNamed(const char *bridge);

} // namespace wrt::support

#endif
