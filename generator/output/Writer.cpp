#include "generator/output/Writer.h"

#include <algorithm>

namespace bridgegen {

void Writer::append(std::string_view text) {
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    if (text[0] != '\n' && text[0] != '#' && (text_.empty() || text_.back() == '\n'))
      text_.append(size_t{indentation_} * depth_, ' ');
    text_.append(text.substr(0, end));
    text.remove_prefix(end);
  }
}

} // namespace bridgegen
