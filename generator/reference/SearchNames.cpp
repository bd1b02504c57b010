#include "generator/emit/Documentation.h"
#include "generator/output/Json.h"
#include "generator/project/BridgeClass.h"
#include "generator/reference/MemberFacts.h"
#include "generator/reference/Places.h"
#include "generator/reference/Reference.h"

namespace bridgegen {

namespace {

using json::string;

/// Whose objects or class answer the interface's methods, by WinRT's simple names.
std::string owners(const InterfaceType &interface, const Model &model) {
  std::string names;
  if (const ClassType *owner = interface.isClassSide() ? model.classSideOwner(interface) : nullptr)
    names = owner->simpleName();
  for (const ClassType *owner : model.implementers(interface))
    names += (names.empty() ? "" : " ") + owner->simpleName();
  return names;
}

/// Objective-C's name and WinRT's, for each thing that the type's page shows.
std::vector<std::string> parts(const Type &type) {
  std::vector<std::string> lines;
  const auto add = [&](const std::string &objc, const std::string &winrt) {
    lines.push_back(string(objc) + ", " + string(winrt));
  };
  if (type.kind == Kind::Interface) {
    for (const BridgeMethod &method : protocolMethods(asInterface(type)))
      add(method.method.selector, method.member ? winrtName(*method.member) : "");
  } else if (type.kind == Kind::Enum) {
    for (const EnumType::Constant &constant : asEnum(type).constants)
      add(type.cName() + constant.name, constant.name);
  } else if (type.kind == Kind::Struct) {
    for (const StructType::Field &field : asStruct(type).fields)
      add(field.name, field.name);
  }
  return lines;
}

std::string line(const Type &type, const Model &model) {
  const bool isReference = type.isReferenceType();
  return "[" + string(Places::address(type)) + ", " +
         string(isReference ? type.bridgeClass() : type.cName()) + ", " + string(type.name) + ", " +
         string(type.kind == Kind::Interface ? owners(asInterface(type), model) : "") + ", [" +
         [&] {
           std::string text;
           for (const std::string &part : parts(type))
             text += (text.empty() ? "" : ",") + part;
           return text;
         }() +
         "]]";
}

} // namespace

std::string emitSearchNames(const Input &input) {
  std::vector<std::string> lines;
  for (const auto &[name, type] : input.model.types()) {
    if (Places::hasPage(*type))
      lines.push_back(line(*type, input.model));
  }
  for (const HandWrittenClass &type : input.handWritten) {
    std::string methods;
    for (const std::string &method : type.methods) {
      const size_t side = method.find('\t') + 1;
      const size_t selector = method.find('\t', side) + 1;
      methods += (methods.empty() ? "" : ",") +
                 string(method.substr(selector, method.find('\t', selector) - selector)) + ", \"\"";
    }
    lines.push_back("[" + string(Places::addressOfHandWritten(type.name)) + ", " +
                    string(type.name) + ", \"\", \"\", [" + methods + "]]");
  }
  return "wrtNames(" + json::array(lines) + ");\n";
}

} // namespace bridgegen
