#ifndef WRT_TOOLS_SIZE_REPORT_H
#define WRT_TOOLS_SIZE_REPORT_H

#include "LinkMap.h"

#include "catalogue/reader/CatalogueTables.h"

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace wrt::pe {

/// What the object files bring into an image, in bytes.
struct ContentSize {
  std::size_t methods = 0;
  std::uint32_t methodCode = 0;
  std::size_t shapes = 0;
  std::uint32_t shapeCode = 0;
  /// Accessors' stubs, adapters of delegates and the like.
  std::uint32_t otherCode = 0;
  /// Members' constants and interface identifiers.
  std::uint32_t constants = 0;
  /// Classes, protocols, method lists.
  std::uint32_t metadata = 0;
  /// Selectors, encodings, names.
  std::uint32_t strings = 0;
  /// The records for unwinding, with what they point to.
  std::uint32_t unwinding = 0;
};

/// The sizes of an image and of its parts.
struct SizeReport {
  /// Of the file, in bytes.
  std::uintmax_t file = 0;
  std::vector<Section> sections;
  /// Of the export directory, which stands in `.rdata`.
  std::uint32_t exports = 0;
  /// Of the library's fixup table.
  std::uint32_t fixups = 0;
  ContentSize content;
  /// The code of each method of the catalogue, in bytes, by its name `-[Class selector]`.
  std::map<std::string, std::uint32_t> methods;

  static SizeReport read(const std::filesystem::path &image, const std::filesystem::path &map);
};

/// Writes the report as Markdown.
void writeReport(const SizeReport &report, std::ostream &out);

/// What must hold of the product's size.
struct SizeGoals {
  std::uintmax_t file = 1'580'000;
  std::uint32_t text = 215'000;
  /// Of a method that gets or sets a number or a structure.
  std::uint32_t valueAccessor = 24;
  /// Of any generated method.
  std::uint32_t method = 48;
};

/// What came of comparing the sizes with the goals.
struct SizeCheck {
  std::size_t valueAccessors = 0;
  std::size_t methods = 0;
  /// One line for each goal missed by what is not listed, and for each method listed without need.
  std::vector<std::string> problems;
};

/// Compares with the goals; none is set for the methods of the hand-written among `classes`.
/// `listed` has the names of the methods that may be larger than others.
SizeCheck checkSizes(const SizeReport &report, const std::vector<catalogue::Method> &methods,
                     const std::vector<catalogue::Class> &classes,
                     const std::vector<std::string> &listed, const SizeGoals &goals = {});

} // namespace wrt::pe

#endif
