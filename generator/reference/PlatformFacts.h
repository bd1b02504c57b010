#ifndef WRT_GENERATOR_REFERENCE_PLATFORM_FACTS_H
#define WRT_GENERATOR_REFERENCE_PLATFORM_FACTS_H

#include "generator/model/Model.h"
#include "generator/read/Diagnostics.h"

#include <set>

namespace bridgegen {

/// What the embedded platform on Linux has written.
class PlatformFacts {
public:
  /// Nothing is known.
  PlatformFacts() = default;
  /// A line of the source is the simple name of an interface that the platform implements, or that
  /// name, a tab and a function that it answers with "not implemented". Other lines are reported.
  PlatformFacts(const Source &source, Diagnostics &diagnostics);

  /// What there is of the interface or of the class's own interface, in one word for the pages:
  /// "yes", "partly", "no"; nothing if nothing is known.
  std::string of(const Type &type) const;
  /// Whether there is the interface, but not this member of it.
  bool lacks(const InterfaceType &interface, const Member &member) const;

private:
  bool isKnown_ = false;
  std::set<std::string> interfaces_;
  std::set<std::pair<std::string, std::string>> refused_; ///< interface and function
};

} // namespace bridgegen

#endif
