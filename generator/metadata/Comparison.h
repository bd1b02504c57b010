#ifndef WRT_GENERATOR_METADATA_COMPARISON_H
#define WRT_GENERATOR_METADATA_COMPARISON_H

#include "generator/metadata/Types.h"

namespace bridgegen::metadata {

/// Where metadata and known declarations of one type differ.
struct Difference {
  enum class What {
    Lacks,        ///< declared and not in the metadata
    Besides,      ///< in the metadata and not declared
    OtherSlot,    ///< in both, at different places of the table
    Contradiction ///< in both, and only one can be right
  };

  What what;
  std::string text;
  Place place; ///< none for a type that the metadata lacks

  /// Whether bridges by one of the two would call the wrong thing on components of the other.
  bool isContradiction() const { return what == What::OtherSlot || what == What::Contradiction; }
};

/// Compares the types that both have, and lists the known ones of the metadata's namespaces that
/// it lacks. In the order of the metadata.
std::vector<Difference> compare(const Types &types);

} // namespace bridgegen::metadata

#endif
