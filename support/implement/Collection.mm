#include "support/implement/Collection.h"

#include <iterator>
#include <string.h>

namespace wrt::support {

namespace {

constexpr GUID kInspectable = {
    0xAF86E2E0, 0xB12D, 0x4C6A, {0x9C, 0x5A, 0xD7, 0xAA, 0x65, 0x10, 0x1E, 0x90}};

constexpr Collection kCollections[] = {
#include <support/collections.inc>
};

/// Selectors cannot stand in constant data; each is looked up once.
const SEL *accessors() {
  struct All {
    SEL selectors[std::size(kCollections)];
    All() {
      for (size_t i = 0; i < std::size(kCollections); ++i) {
        const char *name = kCollections[i].bridge;
        const int stem = static_cast<int>(strlen(name) - strlen("_Bridge"));
        selectors[i] =
            NSSelectorFromString([NSString stringWithFormat:@"_%.*sWithError:", stem, name]);
      }
    }
  };
  static const All all;
  return all.selectors;
}

int rank(const Collection &collection) {
  switch (collection.family) {
  case Family::Vector:
  case Family::VectorView:
    return 0;
  case Family::Map:
  case Family::MapView:
    return 1;
  default:
    return 2;
  }
}

} // namespace

SEL Collection::accessor() const { return accessors()[this - kCollections]; }

const Collection *collectionOf(Class bridge) {
  const Collection *best = nullptr;
  for (const Collection &collection : kCollections) {
    if ((!best || rank(collection) < rank(*best)) &&
        [bridge instancesRespondToSelector:collection.accessor()])
      best = &collection;
  }
  return best;
}

const Collection *collectionNamed(const char *bridge) {
  for (const Collection &collection : kCollections) {
    if (strcmp(collection.bridge, bridge) == 0)
      return &collection;
  }
  return nullptr;
}

} // namespace wrt::support
