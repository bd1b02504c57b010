#include "generator/emit/Emit.h"

#include "generator/emit/Definitions.h"
#include "generator/emit/MemberConstant.h"
#include "generator/emit/Parts.h"

namespace bridgegen {

namespace {

// What the facts of the members are written with.
constexpr std::string_view kClassReferenceHeader = "marshal/ClassReference.h";
constexpr std::string_view kInspectableHeader = "marshal/Inspectable.h";

class MembersHeader {
public:
  explicit MembersHeader(const Unit &unit) : unit_(unit) { collectFacts(); }

  std::string text() {
    writeBanner(writer_, unit_);
    {
      const IncludeGuard guard(writer_, unit_, "MEMBERS_H");
      writeIncludes();
      classes_.write(writer_);
      writer_.append("\nnamespace wrt {\n\n");
      writeForwardDeclarations();
      for (const InterfaceType *interface : unit_.interfaces)
        writeInterface(*interface);
      writer_.append("} // namespace wrt\n");
    }
    return writer_.text();
  }

private:
  void collectFacts() {
    for (const DelegateType *delegate : unit_.delegates) {
      if (!delegate->returnsObject())
        makers_.insert(delegate->scopeName());
    }
    for (const InterfaceType *interface : unit_.interfaces) {
      for (const Member &member : interface->members) {
        if (!member.isBridged() || needsConstantPerClass(member))
          continue;
        for (const Fact &fact : shapeOf(member).facts()) {
          if (fact.type->kind == Kind::Object)
            continue; // marshal/Inspectable.h has both
          if (fact.kind == FactKind::Class)
            classes_.add(*fact.type);
          else if (fact.kind == FactKind::Maker)
            makers_.insert(fact.type->scopeName());
          else if (const InterfaceType *asked = crossingInterface(*fact.type))
            asked_.insert(asked->scopeName());
        }
        for (const Parameter &parameter : member.parameters)
          collectStruct(*parameter.type);
        if (member.result)
          collectStruct(*member.result);
      }
    }
  }

  void collectStruct(const Type &type) {
    if (type.kind == Kind::Struct)
      structUnits_.insert(type.unit);
  }

  void writeIncludes() {
    std::set<std::string_view> headers{kClassReferenceHeader, kInspectableHeader};
    for (const MarshalWord &word : kMarshalWords)
      headers.insert(word.header);
    for (const std::string_view header : headers)
      writer_.write("#include \"%\"\n", header);
    writer_.append("\n");
    writeTypesIncludes(writer_, structUnits_);
    if (!structUnits_.empty())
      writer_.append("\n");
  }

  void writeForwardDeclarations() {
    for (const std::string &name : asked_)
      writer_.write("namespace % {\nvoid *interface(id object, NSError **error);\n}\n", name);
    if (!asked_.empty())
      writer_.append("\n");
    if (makers_.empty())
      return;
    writer_.append("namespace delegates {\n");
    for (const std::string &name : makers_)
      writer_.write("void *%(id handler, Retained<> &adapter);\n", name);
    writer_.append("} // namespace delegates\n\n");
  }

  void writeInterface(const InterfaceType &interface) {
    writer_.write("/// %\nnamespace % {\ninline constexpr GUID kIid%;\n"
                  "void *interface(id object, NSError **error);\n",
                  interface.name, interface.scopeName(), interface.iid.initializer());
    for (const Member &member : interface.members) {
      if (member.isBridged() && !needsConstantPerClass(member))
        writer_.write("inline constexpr %;\n",
                      memberConstant(member, constantName(member), "interface"));
    }
    writer_.write("} // namespace %\n\n", interface.scopeName());
  }

  const Unit &unit_;
  Writer writer_;
  // What the facts of this unit's members name.
  ClassReferences classes_;
  std::set<std::string> makers_;
  std::set<std::string> asked_;
  Units structUnits_;
};

} // namespace

std::string emitMembersHeader(const Unit &unit, const Input &) {
  return MembersHeader(unit).text();
}

} // namespace bridgegen
