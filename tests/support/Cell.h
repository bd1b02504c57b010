#ifndef WRT_TESTS_CELL_H
#define WRT_TESTS_CELL_H

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace wrt::test {

/// One cell of the matrix: a test under the name `type.direction.shape.outcome`. Each runs in an
/// autorelease pool of its own, which is drained before the ledger is compared: everything that the
/// cell made must be gone, but for what it announced with `expectLeftover`.
struct Cell {
  Cell(const char *name, const std::function<void()> &body);
};

/// The body of each cell, by name.
const std::map<std::string, std::function<void()>> &allCells();

/// Runs a cell for its end alone, whatever its expectations say: empty if nothing was raised and
/// nothing is left behind but what was announced, or a part of it.
std::string endOf(const std::function<void()> &body);

/// Whether the running cell was started by `endOf`, where what it waits for may never come.
bool runsForItsEnd();

/// What the running cell leaves behind because the library keeps it on purpose, beside what it has
/// announced before. To be announced before it is made.
struct Leftover {
  int strings = 0;
  int extraHandles = 0; ///< handles beyond one for each string
  int taskBlocks = 0;
};
void expectLeftover(Leftover leftover);

/// Whether the cell that ran last has announced something.
bool announcesLeftover();

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
