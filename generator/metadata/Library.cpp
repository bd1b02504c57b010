#include "generator/metadata/Library.h"

#include "generator/metadata/DefinitionReader.h"
#include "generator/read/Diagnostics.h"

namespace bridgegen::metadata {

void Library::add(const std::string &path, std::string_view contents) {
  const Tables &tables = files_.emplace_back(path, contents);
  std::vector<Definition> read = readDefinitions(tables);
  if (read.empty())
    throw Refused(path + ": error: it defines no WinRT types");
  for (Definition &definition : read) {
    const Definition &added = definitions_.emplace_back(std::move(definition));
    if (!byName_.emplace(added.fullName(), &added).second)
      added.place.refuse("type " + quoted(added.fullName()) + " is defined twice");
    addRoles(added);
  }
}

void Library::addRoles(const Definition &definition) {
  for (const Definition::ClassSide &side : definition.classSide) {
    const auto [role, isNew] = roles_.emplace(side.interface, side.form);
    if (!isNew && role->second != side.form)
      definition.place.refuse(quoted(side.interface) +
                              " is listed in two ways: as statics, as a factory or to be composed");
  }
  for (const std::string &interface : definition.composable)
    roles_.emplace(interface, std::nullopt);
}

const Definition *Library::find(const std::string &fullName) const {
  const auto found = byName_.find(fullName);
  return found == byName_.end() ? nullptr : found->second;
}

std::optional<syntax::Form> Library::roleOf(const std::string &interface) const {
  const auto found = roles_.find(interface);
  return found == roles_.end() ? syntax::Form::Full : found->second;
}

} // namespace bridgegen::metadata
