#ifndef WRT_PATCHER_MOVE_PAIR_H
#define WRT_PATCHER_MOVE_PAIR_H

#include <cstdint>

namespace wrt::startup {

/// Puts a 16-bit immediate into a Thumb-2 MOVW or MOVT of two halfwords, keeping opcode and
/// register. The immediate is split as imm4:i:imm3:imm8 (ARM Architecture Reference Manual ARMv7-A,
/// A8.8.102 encoding T3 and A8.8.106 encoding T1): imm4 in bits 0-3 and i in bit 10 of the first
/// halfword, imm3 in bits 12-14 and imm8 in bits 0-7 of the second.
inline void setMoveImmediate(volatile std::uint16_t *instruction, std::uint32_t immediate) {
  const std::uint32_t imm4 = immediate >> 12 & 0xF;
  const std::uint32_t i = immediate >> 11 & 1;
  const std::uint32_t imm3 = immediate >> 8 & 7;
  const std::uint32_t imm8 = immediate & 0xFF;
  instruction[0] = static_cast<std::uint16_t>((instruction[0] & ~0x040Fu) | i << 10 | imm4);
  instruction[1] = static_cast<std::uint16_t>((instruction[1] & ~0x70FFu) | imm3 << 12 | imm8);
}

/// Makes a MOVW/MOVT pair load `value`, unless the first instruction is not a MOVW: bit 7 of the
/// first halfword tells the two apart.
inline void setMovePair(volatile std::uint16_t *pair, std::uint32_t value) {
  if (pair[0] & 0x80)
    return;
  setMoveImmediate(pair, value & 0xFFFF);
  setMoveImmediate(pair + 2, value >> 16);
}

} // namespace wrt::startup

#endif
