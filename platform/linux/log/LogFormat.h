#ifndef WRT_LOG_FORMAT_H
#define WRT_LOG_FORMAT_H

#include <string>
#include <string_view>

namespace wrt::log {

/// The format with the `l` of its integer conversions (`%lx`, `%08ld`) taken out: log sites are
/// written for targets whose `long` has 32 bits and pass 32-bit values. `%lld` stays.
inline std::string withNarrowLongs(std::string_view format) {
  constexpr std::string_view kFlagsAndWidths = "-+ #0123456789.*'$";
  std::string result;
  size_t position = 0;
  while (position < format.size()) {
    const char first = format[position++];
    result += first;
    if (first != '%')
      continue;
    while (position < format.size() && kFlagsAndWidths.find(format[position]) != format.npos)
      result += format[position++];
    if (position >= format.size())
      break;
    if (format[position] == 'l' && position + 1 < format.size() &&
        std::string_view("diouxX").find(format[position + 1]) != std::string_view::npos)
      ++position;
    result += format[position++];
  }
  return result;
}

} // namespace wrt::log

#endif
