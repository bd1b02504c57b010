#ifndef WRT_GENERATOR_PARTS_H
#define WRT_GENERATOR_PARTS_H

#include "generator/model/Model.h"
#include "generator/output/Writer.h"

/// Pieces that several outputs have in common.
namespace bridgegen {

/// The comment at the top of every output.
void writeBanner(Writer &writer, const Unit &unit);

/// The include guard of an output of the unit, with everything between.
class IncludeGuard {
public:
  IncludeGuard(Writer &writer, const Unit &unit, std::string_view suffix);
  IncludeGuard(const IncludeGuard &) = delete;
  IncludeGuard &operator=(const IncludeGuard &) = delete;
  ~IncludeGuard();

private:
  Writer &writer_;
};

/// Includes of the units' types headers.
void writeTypesIncludes(Writer &writer, const Units &units);

/// What marks the unit's classes as exported: `WRT_BRIDGE_API`.
std::string exportMacro(const Unit &unit);

/// `name` in capitals as part of a macro's name.
std::string macroPart(const std::string &name);

/// An enumeration as applications and components have it.
void writeEnum(Writer &writer, const EnumType &type);

/// Everything that the interface's bridged members name: their parameters and results, with what is
/// inside delegates.
std::vector<const Type *> namedTypes(const InterfaceType &interface);

/// Everything that the delegate's arguments and result name.
std::vector<const Type *> namedTypes(const DelegateType &delegate);

/// Everything that the unit's interfaces and delegates name.
std::vector<const Type *> namedTypes(const Unit &unit);

} // namespace bridgegen

#endif
