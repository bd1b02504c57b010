#include "bench/Report.h"

#include <cstdio>
#include <fstream>
#include <sstream>

namespace wrt::bench {

namespace {

constexpr std::string_view kBegin = "<!-- calls: begin -->\n";
constexpr std::string_view kEnd = "<!-- calls: end -->\n";

std::string format(const char *pattern, double value) {
  char text[32];
  std::snprintf(text, sizeof text, pattern, value);
  return text;
}

} // namespace

std::string table(const Measurements &measurements) {
  std::string text(kBegin);
  text += "| operation | bridge | ÷ written out | ÷ platform alone | allocations: bridge, written "
          "out, platform | instructions: bridge, written out, platform |\n"
          "|---|---|---|---|---|---|\n";
  for (const Row &row : rows()) {
    const std::string name = row.name;
    const Measurement &bridge = measurements.at(name + "/bridge");
    const Measurement &messages = measurements.at(name + "/written");
    const Measurement &platform = measurements.at(name + "/platform");
    text += "| " + name + " | " + format("%.1f ns", bridge.nanoseconds) + " | " +
            format("%.2f", bridge.nanoseconds / messages.nanoseconds) + " | " +
            format("%.1f", bridge.nanoseconds / platform.nanoseconds) + " |";
    for (const Measurement *one : {&bridge, &messages, &platform})
      text += (one == &bridge ? " " : ", ") + format("%.0f", one->allocations);
    text += " |";
    for (const Measurement *one : {&bridge, &messages, &platform})
      text += (one == &bridge ? " " : ", ") + format("%.0f", one->instructions);
    text += " |\n";
  }
  return text + std::string(kEnd);
}

std::string writeTable(const std::string &path, const std::string &table) {
  std::ifstream in(path);
  if (!in)
    return "cannot read " + path;
  std::stringstream buffer;
  buffer << in.rdbuf();
  std::string text = buffer.str();
  const size_t begin = text.find(kBegin);
  const size_t end = text.find(kEnd);
  if (begin == std::string::npos || end == std::string::npos || end < begin)
    return path + " has no marks for the table: " + std::string(kBegin) + std::string(kEnd);
  text.replace(begin, end + kEnd.size() - begin, table);
  std::ofstream out(path, std::ios::trunc);
  out << text;
  return out.flush() ? "" : "cannot write " + path;
}

} // namespace wrt::bench
