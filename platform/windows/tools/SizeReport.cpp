#include "SizeReport.h"

#include <fmt/core.h>

#include <algorithm>
#include <fstream>
#include <set>

namespace wrt::pe {

namespace {

/// The size of a data directory (Microsoft PE and COFF Specification 11.0).
std::uint32_t directorySize(const Image &image, std::uint32_t index) {
  const Rva header = image.u32(0x3C);
  constexpr Rva kDirectories = 24 + 96; // behind signature, file header and optional header
  return image.u32(header + kDirectories + 8 * index + 4);
}

void add(ContentSize &content, const Chunk &chunk) {
  if (isMethod(chunk)) {
    ++content.methods;
    content.methodCode += chunk.size;
  } else if (isShape(chunk)) {
    ++content.shapes;
    content.shapeCode += chunk.size;
  } else if (chunk.section.starts_with(".pdata") || chunk.section.starts_with(".xdata")) {
    content.unwinding += chunk.size;
  } else if (chunk.section.starts_with(".text")) {
    content.otherCode += chunk.size;
  } else if (chunk.section.starts_with(".rdata$_Z")) {
    content.constants += chunk.size;
  } else if (chunk.section.starts_with(".rdata")) {
    content.strings += chunk.size;
  } else if (!chunk.section.starts_with("wrtfixup")) {
    content.metadata += chunk.size;
  }
}

/// `1,234,567`.
std::string grouped(std::uintmax_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3)
    digits.insert(at - 3, ",");
  return digits;
}

void writeImage(const SizeReport &report, std::ostream &out) {
  const ContentSize &content = report.content;
  out << "| part | bytes |\n|---|---:|\n| the file | " << grouped(report.file) << " |\n";
  for (const Section &section : report.sections)
    out << "| section `" << section.name << "` | " << grouped(section.virtualSize) << " |\n";
  out << "\n| what it is made of | bytes |\n|---|---:|\n| " << content.methods
      << " methods' code | " << grouped(content.methodCode) << " |\n| " << content.shapes
      << " shapes' code | " << grouped(content.shapeCode) << " |\n| other code | "
      << grouped(content.otherCode) << " |\n| constants of members, interface identifiers | "
      << grouped(content.constants) << " |\n| Objective-C metadata | " << grouped(content.metadata)
      << " |\n| selectors, encodings, names | " << grouped(content.strings)
      << " |\n| fixup table | " << grouped(report.fixups) << " |\n| records for unwinding | "
      << grouped(content.unwinding) << " |\n| export directory | " << grouped(report.exports)
      << " |\n";
}

void writeMethodSizes(const SizeReport &report, std::ostream &out) {
  std::map<std::uint32_t, std::size_t> counts;
  for (const auto &[_, size] : report.methods)
    ++counts[size];
  out << "| bytes of a method | methods |\n|---:|---:|\n";
  for (const auto &[size, count] : counts)
    out << "| " << size << " | " << grouped(count) << " |\n";
}

/// Whether the method gets or sets a number or a structure: no object on either side.
bool isValueAccessor(const catalogue::Method &entry) {
  if (!entry.slot)
    return false;
  const std::string &selector = entry.selector;
  if (selector.starts_with("get") && selector.ends_with("WithError:"))
    return std::ranges::count(selector, ':') == 1 && entry.encoding[0] != '@';
  if (!selector.starts_with("set") || !selector.ends_with("WithValue:error:"))
    return false;
  // Behind the selector's offset there is the value.
  const std::size_t value = entry.encoding.find(":4") + 2;
  return entry.encoding[value] != '@';
}

} // namespace

SizeReport SizeReport::read(const std::filesystem::path &imageFile,
                            const std::filesystem::path &mapFile) {
  const Image image = Image::read(imageFile);
  SizeReport report;
  report.file = std::filesystem::file_size(imageFile);
  report.sections = image.sections();
  report.exports = directorySize(image, 0);
  const Section *fixups = image.findSection("wrtfixup");
  if (!fixups)
    throw FormatError(imageFile.string() + ": the image has no section wrtfixup");
  report.fixups = fixups->virtualSize;
  for (const Chunk &chunk : LinkMap::read(mapFile).chunks) {
    add(report.content, chunk);
    if (isMethod(chunk))
      report.methods.emplace(chunk.section.substr(chunk.section.find('$') + 1), chunk.size);
  }
  return report;
}

void writeReport(const SizeReport &report, std::ostream &out) {
  out << "### The image\n\n";
  writeImage(report, out);
  out << "\n### Sizes of methods\n\n";
  writeMethodSizes(report, out);
}

SizeCheck checkSizes(const SizeReport &report, const std::vector<catalogue::Method> &methods,
                     const std::vector<catalogue::Class> &classes,
                     const std::vector<std::string> &listed, const SizeGoals &goals) {
  SizeCheck result;
  const auto require = [&](const std::string &what, std::uintmax_t is, std::uintmax_t goal) {
    if (is > goal)
      result.problems.push_back(fmt::format("{} has {} bytes, the goal is {}", what, is, goal));
  };
  require("the file", report.file, goals.file);
  for (const Section &section : report.sections) {
    if (section.name == ".text")
      require(".text", section.virtualSize, goals.text);
  }
  std::set<std::string> handWritten;
  for (const catalogue::Class &each : classes) {
    if (each.isHandWritten())
      handWritten.insert(each.name);
  }
  std::set<std::string> unneeded(listed.begin(), listed.end());
  for (const catalogue::Method &entry : methods) {
    if (handWritten.contains(entry.className))
      continue;
    const std::string name = entry.name();
    const auto method = report.methods.find(name);
    if (method == report.methods.end()) {
      result.problems.push_back("the map has no " + name);
      continue;
    }
    ++result.methods;
    const bool isValue = isValueAccessor(entry);
    result.valueAccessors += isValue;
    const std::uint32_t goal = isValue ? goals.valueAccessor : goals.method;
    if (method->second <= goal || !unneeded.erase(name))
      require(name, method->second, goal);
  }
  for (const std::string &name : unneeded)
    result.problems.push_back(name + " is listed as large and is not");
  return result;
}

} // namespace wrt::pe
