#include "Layout.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace wrt::sweep {

namespace {

/// The type of all members and their number, if they are one to four floating-point numbers of a
/// kind.
struct Homogeneous {
  char kind;
  std::uint32_t count;
};

std::optional<Homogeneous> homogeneous(const EncodedType &type) {
  if (type.kind == 'f' || type.kind == 'd')
    return Homogeneous{type.kind, 1};
  if (!type.isStructure() || type.fields.empty())
    return std::nullopt;
  Homogeneous all{type.fields[0].kind, 0};
  for (const EncodedType &field : type.fields) {
    const auto each = homogeneous(field);
    if (!each || each->kind != all.kind)
      return std::nullopt;
    all.count += each->count;
  }
  return all.count <= 4 ? std::optional(all) : std::nullopt;
}

} // namespace

bool isReturnedInMemory(const EncodedType &type) {
  return type.isStructure() && sizeOf(type) > 4 && !homogeneous(type);
}

std::vector<Placement::Place> Placement::next(const EncodedType &type) {
  if (const auto floating = homogeneous(type)) {
    const std::uint32_t width = floating->kind == 'd' ? 2 : 1;
    return nextSingles(floating->count * width, width);
  }
  return nextWords((sizeOf(type) + 3) / 4, alignmentOf(type) == 8 ? 2 : 1);
}

Placement::Place Placement::nextWord() { return nextWords(1, 1)[0]; }

std::vector<Placement::Place> Placement::nextSingles(std::uint32_t count, std::uint32_t alignment) {
  std::vector<Place> places;
  // The first gap that is wide enough, behind or before what is taken already.
  for (std::uint32_t first = 0; !isFloatingOver_ && first + count <= taken_.size();
       first += alignment) {
    const auto begin = taken_.begin() + first;
    if (std::find(begin, begin + count, true) != begin + count)
      continue;
    std::fill(begin, begin + count, true);
    for (std::uint32_t i = 0; i < count; ++i)
      places.push_back({Place::kSingle, first + i});
    return places;
  }
  isFloatingOver_ = true;
  stack_ = test::roundUp(stack_, alignment);
  for (std::uint32_t i = 0; i < count; ++i)
    places.push_back({Place::kStack, stack_++});
  return places;
}

std::vector<Placement::Place> Placement::nextWords(std::uint32_t count, std::uint32_t alignment) {
  std::vector<Place> places;
  core_ = std::min(test::roundUp(core_, alignment), 4u);
  // What does not fit is divided, unless something is on the stack already.
  if (core_ + count > 4 && stack_ > 0)
    core_ = 4;
  if (core_ == 4)
    stack_ = test::roundUp(stack_, alignment);
  for (std::uint32_t i = 0; i < count; ++i) {
    places.push_back(core_ < 4 ? Place{Place::kCore, core_++} : Place{Place::kStack, stack_++});
  }
  return places;
}

std::vector<std::uint32_t> wordsOf(const EncodedType &type, const Bytes &value) {
  std::vector<std::uint32_t> words((value.size() + 3) / 4);
  std::memcpy(words.data(), value.data(), value.size());
  if (type.kind == 's')
    words[0] = static_cast<std::uint32_t>(static_cast<std::int16_t>(words[0]));
  return words;
}

void put(Arguments &arguments, const std::vector<Placement::Place> &places,
         const std::vector<std::uint32_t> &words) {
  for (std::size_t i = 0; i < places.size(); ++i) {
    const auto [where, index] = places[i];
    if (where == Placement::Place::kStack) {
      arguments.stack.resize(std::max<std::size_t>(arguments.stack.size(), index + 1), 0xCCCCCCCC);
      arguments.stack[index] = words[i];
    } else {
      (where == Placement::Place::kCore ? arguments.core[index] : arguments.single[index]) =
          words[i];
    }
  }
}

std::uint32_t get(emulator::Machine &machine, const Registers &registers, Placement::Place place) {
  switch (place.where) {
  case Placement::Place::kCore:
    return registers.core[place.index];
  case Placement::Place::kSingle:
    return registers.single[place.index];
  default:
    return machine.readWord(registers.core[Registers::kStack] + 4 * place.index);
  }
}

std::vector<std::uint32_t> resultWords(const EncodedType &type, const Registers &registers) {
  const auto *words = homogeneous(type) ? registers.single.data() : registers.core.data();
  return {words, words + (sizeOf(type) + 3) / 4};
}

} // namespace wrt::sweep
