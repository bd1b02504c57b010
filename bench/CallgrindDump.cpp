#include "bench/CallgrindDump.h"

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <string_view>

namespace wrt::bench {

CallgrindDump readDump(const std::filesystem::path &path) {
  constexpr std::string_view kTrigger = "desc: Trigger: Client Request: ";
  CallgrindDump dump;
  Place place;
  bool isCall = false;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kTrigger)) {
      dump.name = line.substr(kTrigger.size());
    } else if (line.starts_with("ob=")) {
      place.library = std::filesystem::path(line.substr(3)).filename();
    } else if (line.starts_with("fn=")) {
      place.function = line.substr(3);
    } else if (line.starts_with("calls=")) {
      isCall = true; // the next line tells what was spent in there
    } else if (!line.empty() &&
               (std::isdigit(line[0]) || line[0] == '+' || line[0] == '-' || line[0] == '*')) {
      const size_t space = line.find(' ');
      if (!isCall && space != line.npos)
        dump.instructions[place] += std::atof(line.c_str() + space);
      isCall = false;
    }
  }
  return dump;
}

} // namespace wrt::bench
