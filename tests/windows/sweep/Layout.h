#ifndef WRT_TESTS_SWEEP_LAYOUT_H
#define WRT_TESTS_SWEEP_LAYOUT_H

#include "Machine.h"
#include "tests/exhaustive/Patterns.h"

#include <cstdint>
#include <vector>

namespace wrt::sweep {

using debug::EncodedType;
using emulator::Arguments;
using emulator::Registers;
using test::alignmentOf;
using test::Bytes;
using test::sizeOf;

/// Whether a result is left in memory whose address is passed in front of all arguments.
bool isReturnedInMemory(const EncodedType &type);

/// Where each argument of a function goes: the procedure call standard's variant with arguments in
/// floating-point registers.
class Placement {
public:
  /// Where one word lies: in `core`, in `single` or on the stack.
  struct Place {
    enum Where : std::uint8_t { kCore, kSingle, kStack } where;
    std::uint32_t index;
  };

  /// The places of the next argument's words.
  std::vector<Place> next(const EncodedType &type);
  /// The place of the next pointer or 32-bit number.
  Place nextWord();

private:
  std::vector<Place> nextSingles(std::uint32_t count, std::uint32_t alignment);
  std::vector<Place> nextWords(std::uint32_t count, std::uint32_t alignment);

  std::uint32_t core_ = 0;
  std::uint32_t stack_ = 0;
  std::vector<bool> taken_ = std::vector<bool>(16);
  bool isFloatingOver_ = false;
};

/// A value's words, its last one filled up as a caller fills it: signed numbers with their sign.
std::vector<std::uint32_t> wordsOf(const EncodedType &type, const Bytes &value);

/// Puts words into their places.
void put(Arguments &arguments, const std::vector<Placement::Place> &places,
         const std::vector<std::uint32_t> &words);
/// A word from its place, on entry to a function.
std::uint32_t get(emulator::Machine &machine, const Registers &registers, Placement::Place place);

/// The words of a result that is not returned in memory.
std::vector<std::uint32_t> resultWords(const EncodedType &type, const Registers &registers);

} // namespace wrt::sweep

#endif
