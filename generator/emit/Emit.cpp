#include "generator/emit/Emit.h"

#include "generator/emit/Paths.h"

namespace bridgegen {

std::vector<std::string> outputPaths(const std::vector<std::string> &units) {
  std::vector<std::string> all;
  for (const std::string &unit : units) {
    for (const std::string &path :
         {paths::typesHeader(unit), paths::publicHeader(unit), paths::abiHeader(unit),
          paths::membersHeader(unit), paths::classes(unit), paths::platformHeader(unit),
          paths::delegateFactories(unit), paths::classNames(unit)})
      all.push_back(path);
  }
  for (const char *path :
       {paths::kUmbrella, paths::kBridgeExports, paths::kCatalogue, paths::kDigest})
    all.emplace_back(path);
  return all;
}

OutputSet emitAll(const Model &model, const std::vector<HandWrittenClass> &handWritten) {
  OutputSet outputs;
  for (const auto &unit : model.units()) {
    outputs.add(paths::typesHeader(unit->name), emitTypesHeader(*unit));
    outputs.add(paths::publicHeader(unit->name), emitPublicHeader(*unit, model));
    outputs.add(paths::abiHeader(unit->name), emitAbiHeader(*unit));
    outputs.add(paths::membersHeader(unit->name), emitMembersHeader(*unit));
    outputs.add(paths::classes(unit->name), emitClasses(*unit));
    outputs.add(paths::platformHeader(unit->name), emitPlatformHeader(*unit));
    outputs.add(paths::delegateFactories(unit->name), emitDelegateFactories(*unit));
    outputs.add(paths::classNames(unit->name), emitClassNames(*unit));
  }
  outputs.add(paths::kUmbrella, emitUmbrella(model));
  outputs.add(paths::kBridgeExports, emitBridgeExports(model));
  outputs.add(paths::kCatalogue, emitCatalogue(model, handWritten));
  outputs.add(paths::kDigest, emitDigest(model, handWritten));
  return outputs;
}

} // namespace bridgegen
