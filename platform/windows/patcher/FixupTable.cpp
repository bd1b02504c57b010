#include "FixupTable.h"

namespace wrt::startup {

namespace {

[[gnu::section("wrtfixup$a"), gnu::aligned(4), gnu::used]] std::uint8_t header[16] = {
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0};

[[gnu::section("wrtfixup$z"), gnu::aligned(4), gnu::used]] std::uint32_t tableEnd[1] = {};

// Volatile, so that the comparison of header and marker is not decided by the compiler.
const volatile std::uint8_t marker[16] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0};

} // namespace

const std::uint8_t *fixupTable() { return header; }

std::uint32_t fixupTableSize() {
  // Distance of two objects in one section, which the language does not define: as numbers.
  return reinterpret_cast<std::uintptr_t>(tableEnd) - reinterpret_cast<std::uintptr_t>(header);
}

const std::uint8_t *fixupTableMarker() { return const_cast<const std::uint8_t *>(marker); }

} // namespace wrt::startup
