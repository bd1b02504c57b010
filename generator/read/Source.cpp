#include "generator/read/Source.h"

#include <utility>

namespace bridgegen {

std::string_view stem(std::string_view path) {
  if (const size_t slash = path.rfind('/'); slash != path.npos)
    path.remove_prefix(slash + 1);
  if (const size_t dot = path.rfind('.'); dot != path.npos && dot != 0)
    path = path.substr(0, dot);
  return path;
}

Source::Source(std::string path, std::string text, Origin origin)
    : path(std::move(path)), unit(stem(this->path)), text(std::move(text)), origin(origin) {}

} // namespace bridgegen
