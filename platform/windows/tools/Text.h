#ifndef WRT_TOOLS_TEXT_H
#define WRT_TOOLS_TEXT_H

#include <cstdint>
#include <sstream>
#include <string>

namespace wrt::pe {

/// A number as `0x1f`, when put into `join`.
struct Hex {
  std::uint64_t value;
};

inline std::ostream &operator<<(std::ostream &out, Hex hex) {
  std::ostringstream digits;
  digits << std::hex << hex.value;
  return out << "0x" << digits.str();
}

/// The parts one after the other.
template <class... Parts>
std::string join(const Parts &...parts) {
  std::ostringstream out;
  (out << ... << parts);
  return out.str();
}

} // namespace wrt::pe

#endif
