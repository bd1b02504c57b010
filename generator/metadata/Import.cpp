#include "generator/metadata/Import.h"

#include "generator/metadata/Comparison.h"
#include "generator/model/Builder.h"
#include "generator/model/Check.h"
#include "generator/read/Parser.h"

namespace bridgegen::metadata {

namespace {

/// Bridges share one space of names, whatever the namespaces of their types are.
void refuseClashes(const Selection &selection, const Known &known, const BridgeNames &names) {
  std::map<std::string, const Definition *> taken;
  for (const Selected &selected : selection.types()) {
    const Definition &definition = *selected.definition;
    const bool hasForm = definition.kind == Definition::Kind::Interface ||
                         definition.kind == Definition::Kind::Class;
    if (!definition.typeParameters.empty() || (hasForm && selected.form == syntax::Form::Extern))
      continue;
    const auto other = names.find(definition.fullName());
    const std::string &name = other == names.end() ? definition.name : other->second;
    const auto [first, isNew] = taken.emplace(name, &definition);
    const Type *clash = known.bridge(name);
    if (clash || !isNew)
      definition.place.refuse("the bridge name " + bridgegen::quoted(name) +
                              " is already that of " +
                              bridgegen::quoted(clash ? clash->name : first->second->fullName()) +
                              "; '--as " + definition.fullName() + "=NAME' gives another");
  }
}

/// The declarations are read again, as whoever gets them will.
bool isAccepted(const std::deque<Source> &known, const std::deque<Source> &written,
                Diagnostics &diagnostics) {
  std::vector<syntax::Unit> units;
  for (const std::deque<Source> *sources : {&known, &written}) {
    for (const Source &source : *sources)
      units.push_back(parse(source, diagnostics));
  }
  if (diagnostics.hasErrors())
    return false;
  const std::unique_ptr<Model> model = buildModel(units, diagnostics);
  if (!diagnostics.hasErrors())
    check(*model, diagnostics);
  return !diagnostics.hasErrors();
}

} // namespace

std::optional<Imported> importTypes(const Library &library, const std::deque<Source> &knownSources,
                                    const Wanted &wanted, const BridgeNames &bridgeNames,
                                    Diagnostics &diagnostics, std::deque<Source> &written) {
  const Known known(knownSources, diagnostics);
  if (diagnostics.hasErrors())
    return std::nullopt;
  const Types types(library, known);
  for (const Difference &difference : compare(types)) {
    if (difference.isContradiction())
      difference.place.refuse(difference.text);
  }
  const Selection selection(types, wanted);
  refuseClashes(selection, known, bridgeNames);

  Imported imported{writeDeclarations(selection, known, bridgeNames), selection.notes()};
  for (const auto &[path, text] : imported.outputs.files())
    written.emplace_back(path, text);
  if (!isAccepted(knownSources, written, diagnostics))
    return std::nullopt;
  imported.types = selection.types().size();
  for (const Selected &selected : selection.types())
    imported.members += selected.members.empty() ? 0 : selected.definition->methods.size();
  return imported;
}

} // namespace bridgegen::metadata
