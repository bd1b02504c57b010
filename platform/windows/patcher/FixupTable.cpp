#include "FixupTable.h"

#include "Architecture.h"

namespace wrt::startup {

namespace {

using Address = ThisArchitecture::Address;

[[gnu::section("wrtfixup$a"), gnu::aligned(4), gnu::used]] Address header[4] = {0, 0, 0, 1};

[[gnu::section("wrtfixup$z"), gnu::aligned(4), gnu::used]] Address tableEnd[1] = {};

// Volatile, so that the comparison of header and marker is not decided by the compiler.
const volatile Address marker[4] = {0, 0, 0, 1};

} // namespace

const std::uint8_t *fixupTable() { return reinterpret_cast<const std::uint8_t *>(header); }

std::uint32_t fixupTableSize() {
  // Distance of two objects in one section, which the language does not define: as numbers.
  return reinterpret_cast<std::uintptr_t>(tableEnd) - reinterpret_cast<std::uintptr_t>(header);
}

const std::uint8_t *fixupTableMarker() {
  return reinterpret_cast<const std::uint8_t *>(const_cast<const Address *>(marker));
}

} // namespace wrt::startup
