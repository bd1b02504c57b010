#include "debug/trace/Options.h"

#include "debug/trace/Status.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fnmatch.h>
#include <stdexcept>

namespace wrt::trace {

namespace {

[[noreturn]] void refuse(const std::string &name, const std::string &value, const char *wanted) {
  throw std::runtime_error(name + "=" + value + ": " + wanted);
}

std::vector<std::string> split(const std::string &text) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == ',')
      parts.emplace_back();
    else
      parts.back() += c;
  }
  std::erase(parts, "");
  return parts;
}

int64_t nanoseconds(const std::string &name, const std::string &value) {
  double number = 0;
  const char *end = value.data() + value.size();
  const auto [unit, error] = std::from_chars(value.data(), end, number);
  constexpr std::pair<std::string_view, double> kUnits[] = {{"us", 1e3}, {"ms", 1e6}, {"s", 1e9}};
  const auto *found = std::ranges::find(kUnits, std::string_view(unit, end),
                                        &std::pair<std::string_view, double>::first);
  if (error != std::errc() || found == std::end(kUnits) || !(number >= 0 && number < 1e9))
    refuse(name, value, "a duration is a number with us, ms or s, as in 0.5ms");
  return std::llround(number * found->second);
}

} // namespace

Options Options::read(char **environment) {
  constexpr std::string_view kPrefix = "WRT_TRACE_";
  Options options;
  for (char **each = environment; *each; ++each) {
    const std::string_view entry(*each);
    if (!entry.starts_with(kPrefix))
      continue;
    const size_t equals = entry.find('=');
    const std::string name(entry.substr(0, equals));
    const std::string value(equals == std::string_view::npos ? "" : entry.substr(equals + 1));
    const std::string what = name.substr(kPrefix.size());
    if (what == "CLASS") {
      options.classes = split(value);
    } else if (what == "STATUS") {
      options.endings = split(value);
      for (const std::string &ending : options.endings) {
        if (ending != "ok" && ending != "failed" && ending != "raised" && !statusNamed(ending))
          refuse(name, ending, "a status is ok, failed, raised, or one as E_BOUNDS or 0x8000000B");
      }
    } else if (what == "DURATION") {
      options.shortest = nanoseconds(name, value);
    } else if (what == "FILE") {
      options.file = value;
    } else if (what == "TABLES") {
      options.tables = value;
    } else if (what == "ALIVE") {
      if (value != "0" && value != "1")
        refuse(name, value, "1 for yes, 0 for no");
      options.listsAlive = value == "1";
    } else {
      throw std::runtime_error(
          name + ": there are WRT_TRACE_CLASS, _STATUS, _DURATION, _FILE, _ALIVE and _TABLES");
    }
  }
  return options;
}

void Options::check(const Tables &tables) const {
  for (const std::string &pattern : classes) {
    if (std::ranges::none_of(tables.methods, [&](const Method &method) {
          return fnmatch(pattern.c_str(), method.className.c_str(), 0) == 0;
        }))
      refuse("WRT_TRACE_CLASS", pattern, "no class is called so");
  }
}

bool Options::wantsClass(const char *name) const {
  return classes.empty() || std::ranges::any_of(classes, [name](const std::string &pattern) {
           return fnmatch(pattern.c_str(), name, 0) == 0;
         });
}

bool Options::wantsEnding(const Ending &ending) const {
  return endings.empty() || std::ranges::any_of(endings, [&](const std::string &wanted) {
           if (wanted == "ok" || wanted == "failed")
             return ending.isFailure() == (wanted == "failed");
           if (wanted == "raised")
             return ending.isRaised;
           return !ending.isRaised && statusNamed(wanted) == ending.status;
         });
}

} // namespace wrt::trace
