#ifndef WRT_PATCHER_FIXUP_TABLE_H
#define WRT_PATCHER_FIXUP_TABLE_H

#include <cstdint>

namespace wrt::startup {

/// This image's fixup table: a header and, behind it, the records that the fixup-table tool made.
/// It is the section `wrtfixup`, put together by the linker in the order of the names' last
/// letters: the header ($a), the records ($m), a word that ends the table ($z).
const std::uint8_t *fixupTable();
/// In bytes, header included.
std::uint32_t fixupTableSize();
/// What the header of a good table is: four words of a pointer's width, the last of them 1.
const std::uint8_t *fixupTableMarker();

} // namespace wrt::startup

#endif
