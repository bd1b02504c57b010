#include "bench/Report.h"

#include <algorithm>
#include <fmt/core.h>
#include <fstream>
#include <sstream>

namespace wrt::bench {

namespace {

/// Whose code a library is.
struct Owner {
  const char *title;
  std::vector<std::string_view> libraries; ///< beginnings of file names; none for all the others
};

const std::vector<Owner> &owners() {
  static const std::vector<Owner> all = {
      {"the library", {"libWRTObjcBridge"}},
      {"embedded platform and component", {"libWRT", "libCross", "libzorvex", "libtest"}},
      {"Objective-C runtime", {"libobjc"}},
      {"Foundation", {"libgnustep"}},
      {"C library", {"libc.", "ld-"}},
      {"the application", {}},
  };
  return all;
}

size_t ownerOf(std::string_view library) {
  const auto owns = [&](const Owner &owner) {
    return owner.libraries.empty() ||
           std::ranges::any_of(owner.libraries,
                               [&](std::string_view name) { return library.starts_with(name); });
  };
  return static_cast<size_t>(std::ranges::find_if(owners(), owns) - owners().begin());
}

} // namespace

std::string callTable(const Measurements &measurements) {
  std::string text =
      "| operation | bridge | ÷ written out | ÷ floor | ÷ platform alone | messages | allocations: "
      "bridge, written out, platform | instructions: bridge, written out, floor, platform |\n"
      "|---|---|---|---|---|---|---|---|\n";
  for (const Row &row : rows()) {
    const std::string name = row.name;
    const Measurement &bridge = measurements.at(name + "/bridge");
    const Measurement &written = measurements.at(name + "/written");
    const Measurement &platform = measurements.at(name + "/platform");
    const Measurement floor = floorOf(row, measurements);
    text += fmt::format("| {} | {:.1f} ns", name, bridge.nanoseconds);
    for (const Measurement *one : {&written, &floor, &platform})
      text += fmt::format(" | {:.2f}", bridge.nanoseconds / one->nanoseconds);
    text += fmt::format(" | {} |", row.messages);
    for (const Measurement *one : {&bridge, &written, &platform})
      text += fmt::format("{} {:.0f}", one == &bridge ? "" : ",", one->allocations);
    text += " |";
    for (const Measurement *one : {&bridge, &written, &floor, &platform})
      text += fmt::format("{} {:.0f}", one == &bridge ? "" : ",", one->instructions);
    text += " |\n";
  }
  const Measurement message = oneMessage(measurements);
  return text + fmt::format("\nOne message to an empty method: {:.1f} ns, {:.0f} instructions.\n",
                            message.nanoseconds, message.instructions);
}

std::string placeTable(const Measurements &measurements) {
  std::string text = "| operation |";
  for (const Owner &owner : owners())
    text += std::string(" ") + owner.title + " |";
  text += "\n|---|";
  for (size_t i = 0; i < owners().size(); ++i)
    text += "---|";
  text += "\n";
  for (const Row &row : rows()) {
    std::vector<double> shares(owners().size());
    for (const auto &[place, count] : measurements.at(std::string(row.name) + "/bridge").places)
      shares[ownerOf(place.library)] += count;
    text += std::string("| ") + row.name + " |";
    for (const double share : shares)
      text += fmt::format(" {:.0f} |", share);
    text += "\n";
  }
  return text;
}

std::string functionList(const std::string &name, const Measurement &measurement) {
  std::vector<std::pair<double, Place>> places;
  for (const auto &[place, count] : measurement.places)
    places.emplace_back(count, place);
  std::ranges::sort(places, std::greater());
  std::string text = fmt::format("{}: {:.0f} instructions\n", name, measurement.instructions);
  for (const auto &[count, place] : places)
    text += fmt::format("{:8.0f}  {}  {}\n", count, place.library, place.function);
  return text;
}

std::string writeTable(const std::string &path, const std::string &mark, const std::string &table) {
  const std::string begin = "<!-- " + mark + ": begin -->\n";
  const std::string end = "<!-- " + mark + ": end -->\n";
  std::ifstream in(path);
  if (!in)
    return "cannot read " + path;
  std::stringstream buffer;
  buffer << in.rdbuf();
  std::string text = buffer.str();
  const size_t from = text.find(begin);
  const size_t to = text.find(end);
  if (from == std::string::npos || to == std::string::npos || to < from)
    return path + " has no marks for the table: " + begin + end;
  text.replace(from + begin.size(), to - from - begin.size(), table);
  std::ofstream out(path, std::ios::trunc);
  out << text;
  return out.flush() ? "" : "cannot write " + path;
}

} // namespace wrt::bench
