#ifndef WRT_GENERATOR_HAND_WRITTEN_H
#define WRT_GENERATOR_HAND_WRITTEN_H

#include "generator/read/Diagnostics.h"

#include <string>
#include <vector>

namespace bridgegen {

/// A class that is not generated and belongs to the surface all the same.
struct HandWrittenClass {
  std::string name;
  std::string superclass;
  std::vector<std::string> methods; ///< lines of the catalogue
};

/// Reads a list of hand-written classes. A line is empty, a comment (`#`), a class (name and
/// superclass) or a method of the class above it, in the columns of `catalogue.tsv`; columns are
/// separated by tabs. What is none of these is reported.
std::vector<HandWrittenClass> readHandWritten(const Source &source, Diagnostics &diagnostics);

} // namespace bridgegen

#endif
