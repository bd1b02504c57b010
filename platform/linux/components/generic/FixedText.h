#ifndef WRT_COMPONENTS_FIXED_TEXT_H
#define WRT_COMPONENTS_FIXED_TEXT_H

#include <cstddef>
#include <string_view>

namespace wrt::implement {

/// Text of a fixed length (in bytes, without a terminator) that constants and template arguments
/// are made of.
template <size_t length>
struct FixedText {
  char text[length + 1]{};

  constexpr FixedText() = default;
  // Implicit, so that a literal may stand as a template argument.
  constexpr FixedText(const char (&literal)[length + 1]) {
    for (size_t i = 0; i < length; ++i)
      text[i] = literal[i];
  }

  constexpr std::string_view view() const { return {text, length}; }
};

template <size_t size>
FixedText(const char (&)[size]) -> FixedText<size - 1>;

template <size_t left, size_t right>
constexpr FixedText<left + right> operator+(const FixedText<left> &a, const FixedText<right> &b) {
  FixedText<left + right> sum;
  for (size_t i = 0; i < left; ++i)
    sum.text[i] = a.text[i];
  for (size_t i = 0; i < right; ++i)
    sum.text[left + i] = b.text[i];
  return sum;
}

} // namespace wrt::implement

#endif
