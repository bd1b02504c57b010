#ifndef WRT_GENERATOR_PARTS_H
#define WRT_GENERATOR_PARTS_H

#include "generator/model/Model.h"
#include "generator/output/Writer.h"

#include <set>

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

/// Includes of the units' types headers, by name.
void writeTypesIncludes(Writer &writer, const std::set<std::string> &units);

/// Everything that the interface's bridged members name: their parameters and results, with what is
/// inside delegates.
std::vector<const Type *> namedTypes(const InterfaceType &interface);

/// Everything that the delegate's arguments and result name.
std::vector<const Type *> namedTypes(const DelegateType &delegate);

} // namespace bridgegen

#endif
