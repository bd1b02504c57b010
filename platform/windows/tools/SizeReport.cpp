#include "SizeReport.h"

#include "Text.h"

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

/// The unit that an object file belongs to: of `.../<target>.dir/./classes/<unit>.mm.o` the unit,
/// of other files the target, with start-up's files together.
std::string unitOf(const std::string &file) {
  constexpr std::string_view kClasses = "/classes/";
  constexpr std::string_view kFolder = ".dir/";
  if (const std::size_t at = file.rfind(kClasses); at != std::string::npos) {
    const std::string name = file.substr(at + kClasses.size());
    return name.substr(0, name.rfind(".mm."));
  }
  const std::size_t end = file.rfind(kFolder);
  if (end == std::string::npos)
    return "start-up";
  const std::size_t begin = file.rfind('/', end - 1) + 1;
  const std::string target = file.substr(begin, end - begin);
  return target == "core" || target == "marshal" ? target : "start-up";
}

void add(UnitSize &unit, const Chunk &chunk) {
  if (isMethod(chunk)) {
    ++unit.methods;
    unit.methodCode += chunk.size;
  } else if (isShape(chunk)) {
    ++unit.shapes;
    unit.shapeCode += chunk.size;
  } else if (chunk.section.starts_with(".text")) {
    unit.otherCode += chunk.size;
  } else if (chunk.section.starts_with(".rdata$_Z")) {
    unit.constants += chunk.size;
  } else if (chunk.section.starts_with(".rdata")) {
    unit.strings += chunk.size;
  } else if (!chunk.section.starts_with("wrtfixup")) {
    unit.metadata += chunk.size;
  }
}

/// `1,234,567`.
std::string grouped(std::uintmax_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3)
    digits.insert(at - 3, ",");
  return digits;
}

std::string perMethod(const UnitSize &unit) {
  return unit.methods == 0 ? "" : std::to_string(unit.total() / unit.methods);
}

void writeImage(const SizeReport &report, std::ostream &out) {
  const UnitSize sum = report.sum();
  out << "| part | bytes |\n|---|---:|\n| the file | " << grouped(report.file) << " |\n";
  for (const Section &section : report.sections)
    out << "| section `" << section.name << "` | " << grouped(section.virtualSize) << " |\n";
  out << "\n| what it is made of | bytes |\n|---|---:|\n| " << sum.methods << " methods' code | "
      << grouped(sum.methodCode) << " |\n| " << sum.shapes << " shapes' code | "
      << grouped(sum.shapeCode) << " |\n| other code | " << grouped(sum.otherCode)
      << " |\n| constants of members, interface identifiers | " << grouped(sum.constants)
      << " |\n| Objective-C metadata | " << grouped(sum.metadata)
      << " |\n| selectors, encodings, names | " << grouped(sum.strings) << " |\n| fixup table | "
      << grouped(report.fixups) << " |\n| records for unwinding | " << grouped(report.unwinding)
      << " |\n| export directory | " << grouped(report.exports) << " |\n";
}

void writeUnits(const SizeReport &report, std::ostream &out) {
  out << "| unit | methods | code of methods | of shapes | other code | constants | metadata | "
         "strings | bytes per method |\n|---|---:|---:|---:|---:|---:|---:|---:|---:|\n";
  const auto row = [&](const UnitSize &unit) {
    out << "| " << unit.name << " | " << unit.methods << " | " << grouped(unit.methodCode) << " | "
        << grouped(unit.shapeCode) << " | " << grouped(unit.otherCode) << " | "
        << grouped(unit.constants) << " | " << grouped(unit.metadata) << " | "
        << grouped(unit.strings) << " | " << perMethod(unit) << " |\n";
  };
  std::ranges::for_each(report.units, row);
  row(report.sum());
}

/// How the shapes grow while the units come in one after the other.
void writeGrowth(const SizeReport &report, std::ostream &out) {
  constexpr std::size_t kStep = 10;
  out << "| units | methods | their code | shapes | their code |\n|---:|---:|---:|---:|---:|\n";
  UnitSize sum;
  for (std::size_t i = 0; i < report.units.size(); ++i) {
    const UnitSize &unit = report.units[i];
    sum.methods += unit.methods;
    sum.methodCode += unit.methodCode;
    sum.shapes += unit.shapes;
    sum.shapeCode += unit.shapeCode;
    if ((i + 1) % kStep == 0 || i + 1 == report.units.size()) {
      out << "| " << i + 1 << " | " << grouped(sum.methods) << " | " << grouped(sum.methodCode)
          << " | " << sum.shapes << " | " << grouped(sum.shapeCode) << " |\n";
    }
  }
}

void writeMethodSizes(const SizeReport &report, std::ostream &out) {
  std::map<std::uint32_t, std::size_t> counts;
  for (const auto &[_, size] : report.methods)
    ++counts[size];
  out << "| bytes of a method | methods |\n|---:|---:|\n";
  for (const auto &[size, count] : counts)
    out << "| " << size << " | " << grouped(count) << " |\n";
}

/// Whether the class is one of `core/`, which no goal is set for.
bool isHandWritten(const std::string &className) {
  static const std::set<std::string> classes = {"WRTUnknownBridge",      "WRTInspectableBridge",
                                                "WRTInterfaceProxy",     "WRTClassProxy",
                                                "WRTIInspectableBridge", "WRTHSTRINGBridge"};
  return classes.contains(className);
}

/// Whether the method gets or sets a number or a structure: no object on either side.
bool isValueAccessor(const CatalogueEntry &entry) {
  if (entry.slot == "-")
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
  report.fixups = image.findSection("wrtfixup")->virtualSize;
  std::map<std::string, std::size_t> places;
  for (const Chunk &chunk : LinkMap::read(mapFile).chunks) {
    const std::string name = unitOf(chunk.file);
    const auto [place, isNew] = places.emplace(name, report.units.size());
    if (isNew)
      report.units.push_back({.name = name});
    if (chunk.section.starts_with(".pdata") || chunk.section.starts_with(".xdata"))
      report.unwinding += chunk.size;
    else
      add(report.units[place->second], chunk);
    if (isMethod(chunk))
      report.methods.emplace(chunk.section.substr(chunk.section.find('$') + 1), chunk.size);
  }
  return report;
}

UnitSize SizeReport::sum() const {
  UnitSize sum{.name = "all"};
  for (const UnitSize &unit : units) {
    sum.methods += unit.methods;
    sum.methodCode += unit.methodCode;
    sum.shapes += unit.shapes;
    sum.shapeCode += unit.shapeCode;
    sum.otherCode += unit.otherCode;
    sum.constants += unit.constants;
    sum.metadata += unit.metadata;
    sum.strings += unit.strings;
  }
  return sum;
}

void writeReport(const SizeReport &report, std::ostream &out) {
  out << "### The image\n\n";
  writeImage(report, out);
  out << "\n### Code grows with shapes, not with members\n\n"
         "The units in the order of the link, a shape counted where it comes first.\n\n";
  writeGrowth(report, out);
  out << "\n### Sizes of methods\n\n";
  writeMethodSizes(report, out);
  out << "\n### Units\n\n";
  writeUnits(report, out);
}

SizeCheck checkSizes(const SizeReport &report, const std::vector<CatalogueEntry> &catalogue,
                     const std::vector<std::string> &listed, const SizeGoals &goals) {
  SizeCheck result;
  const auto require = [&](const std::string &what, std::uintmax_t is, std::uintmax_t goal) {
    if (is > goal)
      result.problems.push_back(join(what, " has ", is, " bytes, the goal is ", goal));
  };
  require("the file", report.file, goals.file);
  for (const Section &section : report.sections) {
    if (section.name == ".text")
      require(".text", section.virtualSize, goals.text);
  }
  std::set<std::string> unneeded(listed.begin(), listed.end());
  for (const CatalogueEntry &entry : catalogue) {
    if (isHandWritten(entry.className))
      continue;
    const std::string name =
        join(entry.isClassMethod ? '+' : '-', '[', entry.className, ' ', entry.selector, ']');
    const auto method = report.methods.find(name);
    if (method == report.methods.end()) {
      result.problems.push_back(join("the map has no ", name));
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
    result.problems.push_back(join(name, " is listed as large and is not"));
  return result;
}

} // namespace wrt::pe
