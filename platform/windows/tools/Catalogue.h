#ifndef WRT_TOOLS_CATALOGUE_H
#define WRT_TOOLS_CATALOGUE_H

#include "Metadata.h"

#include <filesystem>
#include <string>
#include <vector>

namespace wrt::pe {

/// What the generator says about one method: a line of `catalogue.tsv`.
struct CatalogueEntry {
  std::string className;
  bool isClassMethod;
  std::string selector;
  /// On a 32-bit target.
  std::string encoding;
  /// Of the protocol that declares the method; empty when no protocol does.
  std::string extendedEncoding;
  std::string interface;
  std::string slot;
};

/// Reads a catalogue: tab-separated, one line per method with the columns class, `+` or `-`,
/// selector, encoding, extended encoding, interface, slot. An empty column or `-` stands for
/// nothing; a first line with the columns' names and lines that begin with `#` are passed over.
/// Throws `FormatError` with the line's number.
std::vector<CatalogueEntry> readCatalogue(const std::filesystem::path &file);

/// What differs between a catalogue and an image's methods, one line each: methods that are
/// missing, that have another encoding, or that the catalogue does not have although it has their
/// class.
std::vector<std::string> compareWithCatalogue(const Metadata &metadata,
                                              const std::vector<CatalogueEntry> &catalogue);

} // namespace wrt::pe

#endif
