#ifndef WRT_TESTS_CELL_H
#define WRT_TESTS_CELL_H

#include <gtest/gtest.h>

#include <memory>

namespace wrt::test {

/// One cell of the matrix: a test under the name `type.direction.shape.outcome`. Each runs in an
/// autorelease pool of its own, which is drained before the ledger is compared: everything that the
/// cell made must be gone, but for what it announced with `expectLeftover`.
struct Cell {
  Cell(const char *name, void (*body)());
};

/// What the running cell leaves behind because the library keeps it on purpose. To be announced
/// before it is made.
struct Leftover {
  int strings = 0;
  int extraHandles = 0; ///< handles beyond one for each string
  int taskBlocks = 0;
  int objects = 0;
};
void expectLeftover(Leftover leftover);

/// Keeps `thing` until the running cell's autorelease pool has been drained.
void keepUntilDrained(std::shared_ptr<void> thing);

/// A new `T` that outlives what the running cell autoreleases.
template <class T>
T &lasting() {
  auto thing = std::make_shared<T>();
  keepUntilDrained(thing);
  return *thing;
}

} // namespace wrt::test

#endif
