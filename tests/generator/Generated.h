#ifndef WRT_TESTS_GENERATED_H
#define WRT_TESTS_GENERATED_H

#include "generator/Generate.h"

#include <map>
#include <string>
#include <vector>

namespace bridgegen::test {

/// What bridgegen makes of declarations, without any file.
struct Generated {
  std::map<std::string, std::string> files; ///< by path; empty after an error
  std::string errors;                       ///< as they are printed
};

/// Generates from files of these paths and contents.
Generated generateFrom(const std::vector<std::pair<std::string, std::string>> &sources);

/// Generates from one file, `sample.idl`.
Generated generateFrom(const std::string &declarations);

/// A line of catalogue.tsv.
struct CatalogueLine {
  std::string bridge, side, selector, encoding, protocolEncoding, interface, slot;
};

/// The catalogue's lines of one class.
std::vector<CatalogueLine> catalogueOf(const Generated &generated, const std::string &bridge);

/// The catalogue's line of one method; a failure and an empty line when there is none.
CatalogueLine methodOf(const Generated &generated, const std::string &bridge,
                       const std::string &selector);

/// The whole file.
std::string readFile(const std::string &path);

} // namespace bridgegen::test

#endif
