#include "Unwinder.h"

#include <fmt/core.h>

namespace wrt::emulator {

std::string Unwinder::unwind() {
  Machine &machine = process_.machine();
  Registers at = machine.registers();
  const Registers &entry = machine.entry();
  constexpr int kDepth = 64;
  for (int depth = 0; at.core[Registers::kLink] != entry.core[Registers::kLink]; ++depth) {
    // The return address is behind the call, which may be a function's last instruction.
    const Address address = (at.core[Registers::kLink] & ~1u) - 2;
    const Module *module = process_.moduleAt(address);
    if (!module || depth == kDepth)
      return "unwinding comes to " + machine.describe(address);
    const pe::UnwindRecord *record = findRecord(recordsOf(*module), address - module->base);
    if (!record)
      return "no unwind record for " + machine.describe(address);
    leave(*record, at);
  }
  if (at.core[Registers::kStack] != entry.core[Registers::kStack])
    return "unwinding comes to another stack pointer";
  for (std::size_t i = 4; i < 12; ++i)
    if (at.core[i] != entry.core[i])
      return fmt::format("unwinding comes to another r{}", i);
  for (std::size_t i = 16; i < at.single.size(); ++i)
    if (at.single[i] != entry.single[i])
      return fmt::format("unwinding comes to another s{}", i);
  return "";
}

void Unwinder::leave(const pe::UnwindRecord &record, Registers &at) const {
  using Step = pe::UnwindStep;
  Address &stack = at.core[Registers::kStack];
  const auto pop = [&] {
    const std::uint32_t word = process_.machine().readWord(stack);
    stack += 4;
    return word;
  };
  for (const auto [kind, value] : record.steps) {
    switch (kind) {
    case Step::kAddToStack:
      stack += value;
      break;
    case Step::kPop:
      for (std::size_t i = 0; i < Registers::kProgram; ++i)
        if (value >> i & 1)
          at.core[i] = pop();
      break;
    case Step::kPopDouble:
      for (std::size_t i = 0; i < at.single.size(); ++i)
        if (value >> i / 2 & 1)
          at.single[i] = pop();
      break;
    case Step::kStackFrom:
      stack = at.core[value];
      break;
    case Step::kLoadLink:
      at.core[Registers::kLink] = process_.machine().readWord(stack);
      stack += value;
      break;
    }
  }
}

const std::vector<pe::UnwindRecord> &Unwinder::recordsOf(const Module &module) {
  const auto [found, isNew] = records_.try_emplace(&module);
  if (isNew)
    found->second = pe::readUnwindRecords(module.image);
  return found->second;
}

} // namespace wrt::emulator
