#include "FixupTable.h"

// The list of words that lld could not leave to the loader: its answer to references to imported
// data
// (-auto-import). The fixup-table tool finds it through the bounds below, turns it into records and
// checks the records against it.
extern "C" const std::uint8_t __RUNTIME_PSEUDO_RELOC_LIST__[];
extern "C" const std::uint8_t __RUNTIME_PSEUDO_RELOC_LIST_END__[];

namespace wrt::startup {

namespace {

[[gnu::section("wrtfixup$a"), gnu::aligned(4), gnu::used]] std::uint8_t header[16] = {
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0};

[[gnu::section("wrtfixup$z"), gnu::aligned(4), gnu::used]] const std::uint8_t *listBounds[2] = {
    __RUNTIME_PSEUDO_RELOC_LIST__, __RUNTIME_PSEUDO_RELOC_LIST_END__};

// Volatile, so that the comparison of header and marker is not decided by the compiler.
const volatile std::uint8_t marker[16] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0};

} // namespace

const std::uint8_t *fixupTable() { return header; }

std::uint32_t fixupTableSize() {
  // Distance of two objects in one section, which the language does not define: as numbers.
  return reinterpret_cast<std::uintptr_t>(listBounds) - reinterpret_cast<std::uintptr_t>(header);
}

const std::uint8_t *fixupTableMarker() { return const_cast<const std::uint8_t *>(marker); }

} // namespace wrt::startup

/// lld demands this function of every image that has such a list; here start-up does its work.
extern "C" void _pei386_runtime_relocator() {}
