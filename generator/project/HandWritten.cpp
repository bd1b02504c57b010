#include "generator/project/HandWritten.h"

#include <algorithm>
#include <sstream>

namespace bridgegen {

namespace {

constexpr long kTabsOfClass = 1;
constexpr long kTabsOfMethod = 6;

} // namespace

std::vector<HandWrittenClass> readHandWritten(const Source &source, Diagnostics &diagnostics) {
  std::vector<HandWrittenClass> classes;
  std::istringstream lines(source.text);
  unsigned number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    if (line.empty() || line[0] == '#')
      continue;
    const long tabs = std::ranges::count(line, '\t');
    const std::string name = line.substr(0, line.find('\t'));
    if (tabs == kTabsOfClass)
      classes.push_back({name, line.substr(name.size() + 1), {}});
    else if (tabs == kTabsOfMethod && !classes.empty() && classes.back().name == name)
      classes.back().methods.push_back(line);
    else
      diagnostics.error({&source, number, 1},
                        "expected a class and its superclass, or a method of the class above");
  }
  return classes;
}

} // namespace bridgegen
