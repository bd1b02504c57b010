#include "generator/reference/Pages.h"

#include "generator/emit/Documentation.h"
#include "generator/emit/MethodText.h"
#include "generator/emit/Outputs.h"
#include "generator/output/Json.h"
#include "generator/project/BridgeClass.h"
#include "generator/reference/MemberFacts.h"

#include <algorithm>

namespace bridgegen {

namespace {

using json::flag;
using json::object;
using json::string;
using json::stringOrNone;

/// `IVector<IUICommand>`: WinRT's name without namespaces.
std::string title(const Type &type) {
  std::string text;
  for (const char c : type.name) {
    if (c == '.')
      text.erase(text.find_last_of("<,") == text.npos ? 0 : text.find_last_of("<,") + 1);
    else if (c != ' ')
      text += c;
  }
  return text;
}

const char *kindName(const Type &type) {
  switch (type.kind) {
  case Kind::Class:
    return "class";
  case Kind::Interface:
    return "interface";
  case Kind::Struct:
    return "structure";
  case Kind::Enum:
    return "enumeration";
  case Kind::Delegate:
    return "delegate";
  case Kind::Scalar:
  case Kind::String:
  case Kind::Object:
    break;
  }
  return "built in";
}

const char *formName(Form form) {
  switch (form) {
  case Form::Full:
    return "full";
  case Form::Proxy:
    return "proxy";
  case Form::Statics:
    return "statics";
  case Form::Factory:
    return "factory";
  case Form::Extern:
    break;
  }
  return "";
}

std::string header(const Type &type) {
  const bool isValue = type.kind == Kind::Struct || type.kind == Kind::Enum;
  return includeName(isValue ? emitTypesHeader : emitPublicHeader, *type.unit);
}

/// What the headers say of a type behind its name and identifier.
std::string withoutName(const std::string &description) {
  const size_t end = description.find(". ");
  return end == description.npos ? "" : description.substr(end + 2);
}

/// A front matter is a page of its own.
std::string asPage(const std::string &facts) { return facts + "\n"; }

std::string anchored(const std::string &address, const std::string &text) {
  return "<a href=\"" + address + "\">" + text + "</a>";
}

} // namespace

Pages::Pages(const Input &input, const PlatformFacts &platform)
    : model_(input.model), platform_(platform), places_(input.model, input.handWritten),
      uses_(input.model) {}

std::string Pages::page(const Type &type) const {
  switch (type.kind) {
  case Kind::Class:
    return page(asClass(type));
  case Kind::Interface:
    return page(asInterface(type));
  case Kind::Struct:
    return page(asStruct(type));
  case Kind::Enum:
    return page(asEnum(type));
  case Kind::Delegate:
    return page(asDelegate(type));
  case Kind::Scalar:
  case Kind::String:
  case Kind::Object:
    break;
  }
  return ""; // what nobody declares has no page
}

std::string Pages::names(const Type &type) const {
  return object({{"winrt", string(type.name)},
                 {"objc", string(type.isReferenceType() ? type.bridgeClass() : type.cName())},
                 {"kind", string(kindName(type))},
                 {"header", string(header(type))},
                 {"platform", stringOrNone(platform_.of(type))}});
}

std::string Pages::page(const InterfaceType &type) const {
  std::vector<std::string> members;
  for (const BridgeMethod &method : protocolMethods(type))
    members.push_back(inFull(method));
  return asPage(
      object({{"title", string(title(type))},
              {"names", names(type)},
              {"form", string(formName(type.form))},
              {"iid", string(type.iid.upper())},
              {"about", stringOrNone(places_.prose(withoutName(describeProtocol(type, model_))))},
              {"adopters", stringOrNone(adopters(type))},
              {"members", json::array(members)},
              {"uses", uses(type)}}));
}

std::string Pages::page(const ClassType &type) const {
  const BridgeClass bridge = bridgeClassOf(type);
  std::vector<std::string> groups;
  if (type.isFull())
    groups.push_back(object(
        {{"title", string("Making one")},
         {"members", json::array({inShort({BridgeMethod::What::Activation, activation()})})}}));
  for (const ClassType::Listed &listed : type.classSide)
    groups.push_back(
        group(listed, listed.form == Form::Factory ? "Constructors" : "Class methods"));
  for (const ClassType::Listed &listed : type.interfaces)
    groups.push_back(group(listed, "Instance methods"));
  return asPage(
      object({{"title", string(title(type))},
              {"names", names(type)},
              {"form", string(formName(type.form))},
              {"superclass", string(places_.code(bridge.superclass))},
              {"about", stringOrNone(places_.prose(withoutName(describeClass(bridge, model_))))},
              {"groups", json::array(groups)},
              {"uses", uses(type)}}));
}

std::string Pages::page(const StructType &type) const {
  std::vector<std::string> fields;
  for (const StructType::Field &field : type.fields) {
    const std::string spelling = field.type->isString()           ? "void *"
                                 : field.type->kind == Kind::Enum ? field.type->cName()
                                                                  : valueSpelling(*field.type);
    fields.push_back(object({{"name", string(field.name)},
                             {"type", string(places_.code(spelling))},
                             {"winrt", string(Places::link(*field.type))}}));
  }
  return asPage(object({{"title", string(title(type))},
                        {"names", names(type)},
                        {"fields", json::array(fields)},
                        {"uses", uses(type)}}));
}

std::string Pages::page(const EnumType &type) const {
  std::vector<std::string> constants;
  constants.reserve(type.constants.size());
  for (const EnumType::Constant &constant : type.constants)
    constants.push_back(object({{"name", string(type.cName() + constant.name)},
                                {"winrt", string(constant.name)},
                                {"value", string(std::to_string(constant.value))}}));
  return asPage(object({{"title", string(title(type))},
                        {"names", names(type)},
                        {"flags", flag(type.isFlags)},
                        {"constants", json::array(constants)},
                        {"uses", uses(type)}}));
}

std::string Pages::page(const DelegateType &type) const {
  const std::string declaration =
      "typedef HRESULT (^" + type.cName() + ")(" + blockParameters(type) + ");";
  return asPage(object({{"title", string(title(type))},
                        {"names", names(type)},
                        {"iid", string(type.iid.upper())},
                        {"declaration", string(places_.code(declaration))},
                        {"uses", uses(type)}}));
}

std::string Pages::inFull(const BridgeMethod &method) const {
  std::vector<std::string> sentences;
  for (const std::string &sentence : ownership(method))
    sentences.push_back(string(places_.prose(sentence)));
  const Member *member = method.member;
  const bool isVoid = method.method.result.spelling == "void";
  return object(
      {{"selector", string(method.method.selector)},
       {"head", string(places_.methodHead(methodHead(method.method, Nullability::Shown)))},
       {"does", string(places_.prose(describe(method)))},
       {"winrt", member ? string(winrtName(*member)) : ""},
       {"kind", member ? string(kindOf(*member)) : ""},
       {"function", member ? string(member->functionName()) : ""},
       {"slot", member ? std::to_string(member->slot) : ""},
       {"parameters", member ? parameters(method) : ""},
       {"gives", isVoid ? "" : string(places_.code(method.method.result.spelling))},
       {"giveswinrt", member && member->result ? string(Places::link(*member->result)) : ""},
       {"givesnull", isVoid ? "" : stringOrNone(nullability(method.method.result))},
       {"ownership", json::array(sentences)},
       {"overloads", member ? overloads(*method.interface, *member) : ""},
       {"missing", member ? flag(platform_.lacks(*method.interface, *member)) : ""}});
}

std::string Pages::inShort(const BridgeMethod &method) const {
  const std::string &selector = method.method.selector;
  return object(
      {{"selector", string(selector)},
       {"address", method.interface ? string(Places::address(*method.interface, selector)) : ""},
       {"head", string(places_.methodHead(methodHead(method.method, Nullability::Shown)))},
       {"does", string(places_.prose(describe(method)))},
       {"missing", method.interface && method.member
                       ? flag(platform_.lacks(*method.interface, *method.member))
                       : ""}});
}

std::string Pages::parameters(const BridgeMethod &method) const {
  std::vector<std::string> rows;
  const std::vector<MethodParameter> words = methodParameters(*method.member);
  for (size_t i = 0; i < words.size(); ++i) {
    const Method::Argument &argument = method.method.arguments[i];
    const MethodParameter &word = words[i];
    const char *way = word.word == Word::Count         ? "in, how many elements"
                      : word.word == Word::FilledCount ? "out, how many elements"
                      : word.parameter->isHandedOut()  ? "out"
                                                       : "in";
    const bool isGivenCount = word.word == Word::Count && word.pointers > 0;
    rows.push_back(object({{"name", string(argument.name)},
                           {"type", string(places_.code(argument.type.spelling))},
                           {"winrt", string(Places::link(word.parameter->typeOf(word.word)))},
                           {"way", string(isGivenCount ? "out, how many elements" : way)},
                           {"null", stringOrNone(nullability(argument.type))}}));
  }
  return json::array(rows);
}

std::string Pages::overloads(const InterfaceType &interface, const Member &member) const {
  if (member.kind != MemberKind::Method)
    return "";
  std::vector<const InterfaceType *> interfaces{&interface};
  if (const ClassType *owner =
          interface.isClassSide() ? model_.classSideOwner(interface) : nullptr) {
    interfaces.clear();
    for (const ClassType::Listed &listed : owner->classSide)
      interfaces.push_back(listed.interface);
  }
  std::vector<std::string> links;
  for (const InterfaceType *each : interfaces) {
    for (const Member &other : each->members) {
      const bool isOverload = &other != &member && other.isBridged() &&
                              other.kind == MemberKind::Method &&
                              winrtName(other) == winrtName(member);
      if (isOverload)
        links.push_back(string(anchored(Places::address(*each, selector(other)), selector(other))));
    }
  }
  return json::array(links);
}

std::string Pages::group(const ClassType::Listed &listed, const char *title) const {
  std::vector<std::string> members;
  for (const BridgeMethod &method : protocolMethods(*listed))
    members.push_back(inShort(method));
  return object({{"title", string(title)},
                 {"protocol", string(places_.code(listed->bridgeClass()))},
                 {"form", string(formName(listed->form))},
                 {"platform", stringOrNone(platform_.of(*listed))},
                 {"members", json::array(members)}});
}

std::string Pages::adopters(const InterfaceType &type) const {
  std::string html;
  const auto add = [&](const Type &adopter) {
    html += (html.empty() ? "" : ", ") + places_.code(adopter.bridgeClass());
  };
  if (const ClassType *owner = type.isClassSide() ? model_.classSideOwner(type) : nullptr)
    add(*owner);
  for (const ClassType *adopter : model_.implementers(type)) {
    if (Places::hasPage(*adopter))
      add(*adopter);
  }
  return html;
}

std::string Pages::uses(const Type &type) const {
  std::vector<std::string> lines;
  for (const TypeUse &use : uses_.of(type)) {
    const std::string name = selector(*use.member);
    lines.push_back(object({{"owner", string(use.interface->simpleName())},
                            {"selector", string(name)},
                            {"address", string(Places::address(*use.interface, name))},
                            {"gives", flag(use.isGiven)}}));
  }
  return json::array(lines);
}

} // namespace bridgegen
