#include "debug/trace/Tables.h"

#include <stdexcept>

namespace wrt::trace {

std::string Method::text(const char *receiver) const {
  return std::string(isClassMethod ? "+[" : "-[") + receiver + " " + selector + "]";
}

Tables Tables::read(const std::string &folder) {
  Tables tables;
  const catalogue::Identifiers identifiers =
      catalogue::readIdentifiers(folder + "/identifiers.tsv");
  for (const catalogue::Interface &each : identifiers.interfaces)
    tables.interfaces.emplace(each.identifier, each.name);
  std::map<std::string, std::string> classNames; // WinRT's, by bridge
  for (const catalogue::RuntimeClass &each : identifiers.classes)
    classNames.emplace(each.bridge, each.name);
  const catalogue::Members members = catalogue::readMembers(folder + "/members.tsv");
  for (catalogue::Method &listed : catalogue::readMethods(folder + "/catalogue.tsv")) {
    Method method{std::move(listed), Method::What::Member, {}};
    if (method.extendedEncoding.empty())
      method.extendedEncoding = method.encoding;
    if (method.slot) {
      const auto found = members.find({method.interface, *method.slot});
      if (found == members.end())
        throw std::runtime_error(folder + "/members.tsv is of another version: it has no slot " +
                                 std::to_string(*method.slot) + " of " + method.interface);
      method.member = found->second;
    } else if (method.selector == "cast:") {
      method.what = Method::What::Cast;
      method.interface.clear();
    } else if (method.selector == "activateInstance") {
      const auto found = classNames.find(method.className);
      if (found == classNames.end())
        continue; // a root class, which activates nothing
      method.interface.clear();
      method.member = found->second + ".ActivateInstance";
    } else if (!method.interface.empty() && method.hasError()) {
      method.what = Method::What::Accessor;
      method.member = method.isClassMethod ? "GetActivationFactory " : "QueryInterface ";
      method.member += method.interface;
      if (method.selector.starts_with("queryInterface"))
        method.member = "QueryInterface"; // the arguments say of what
    } else {
      continue;
    }
    tables.methods.push_back(std::move(method));
  }
  if (tables.methods.empty())
    throw std::runtime_error(folder + "/catalogue.tsv is empty");
  return tables;
}

} // namespace wrt::trace
