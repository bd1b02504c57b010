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

/// What bridges are made for when there is such an output.
enum class For { All, Product, AddOn };

/// One of the files that a run makes for each unit, or for all of them together.
struct Output {
  using OfUnit = std::string (*)(const Unit &, const Input &);
  using OfAll = std::string (*)(const Input &);

  const char *path; ///< below the output folder, with `%` for the unit and `@` for the library
  Use use;
  For madeFor;
  const char *description;
  std::variant<OfUnit, OfAll> emit;

  bool isOfUnit() const { return std::holds_alternative<OfUnit>(emit); }
  bool isMadeFor(const Target &target) const;
  std::string pathOf(const Target &target, const std::string &unit) const;
};

std::span<const Output> allOutputs();

/// The way in which an output of the unit is included: `<WRTObjcBridge/types/U.h>`,
/// `"members/U.members.h"`.
std::string includeName(Output::OfUnit emitter, const Unit &unit);

/// The paths of all outputs for units of these names.
std::vector<std::string> outputPaths(const Target &target, const std::vector<std::string> &units);

/// Everything.
OutputSet emitAll(const Input &input);

} // namespace bridgegen

#endif
