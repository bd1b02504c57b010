#ifndef WRT_GENERATOR_OUTPUTS_H
#define WRT_GENERATOR_OUTPUTS_H

#include "generator/emit/Emit.h"

#include <span>
#include <variant>

namespace bridgegen {

/// What the build does with an output.
enum class Use {
  Header,
  LibrarySource,
  PlatformSource,
  Exports,
  Catalogue,
  Identifiers,
  Members,
  Digest
};

/// One of the files that a run makes for each unit, or for all of them together.
struct Output {
  using OfUnit = std::string (*)(const Unit &, const Input &);
  using OfAll = std::string (*)(const Input &);

  const char *path; ///< below the output folder, with `%` for the unit
  Use use;
  const char *description;
  std::variant<OfUnit, OfAll> emit;

  bool isOfUnit() const { return std::holds_alternative<OfUnit>(emit); }
  std::string pathOf(const std::string &unit) const;
};

std::span<const Output> allOutputs();

/// The way in which an output of the unit is included: `<WRTObjcBridge/types/U.h>`,
/// `"members/U.members.h"`.
std::string includeName(Output::OfUnit emitter, const std::string &unit);

/// The paths of all outputs for units of these names.
std::vector<std::string> outputPaths(const std::vector<std::string> &units);

/// Everything.
OutputSet emitAll(const Input &input);

} // namespace bridgegen

#endif
