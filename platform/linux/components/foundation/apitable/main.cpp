// Turns the declarations into the table that ApiInformation answers from: a sorted list of what
// there is, one line each, as a C++ source file.
//
//     type Windows.Foundation.Uri
//     method Windows.Foundation.Uri CombineUri 1
//     property Windows.Foundation.Uri Host readonly
//     event Windows.ApplicationModel.Core.CoreApplication Exiting
//     value Windows.Foundation.AsyncStatus Completed

#include "generator/model/Builder.h"
#include "generator/read/Parser.h"

#include <deque>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>

namespace {

using namespace bridgegen;

/// The parameters that WinRT takes in.
size_t arityOf(const Member &member) {
  size_t arity = 0;
  for (const Parameter &parameter : member.parameters)
    arity += !parameter.isHandedOut();
  return arity;
}

void describe(const std::string &type, const InterfaceType &interface,
              std::set<std::string> &lines) {
  std::set<std::string> writeable;
  for (const Member &member : interface.members) {
    if (member.kind == MemberKind::Setter)
      writeable.insert(member.name);
  }
  for (const Member &member : interface.members) {
    const std::string &name = member.overloadedName.empty() ? member.name : member.overloadedName;
    if (member.kind == MemberKind::Method) {
      lines.insert("method " + type + " " + name + " " + std::to_string(arityOf(member)));
      lines.insert("method " + type + " " + name);
    } else if (member.kind == MemberKind::Getter) {
      const bool both = writeable.contains(name);
      lines.insert("property " + type + " " + name + (both ? " writeable" : " readonly"));
      lines.insert("property " + type + " " + name);
    } else if (member.kind == MemberKind::EventAdd) {
      lines.insert("event " + type + " " + name);
    }
  }
}

std::set<std::string> describe(const Model &model) {
  std::set<std::string> lines;
  for (const auto &[name, type] : model.types()) {
    if (type->isInstance || name.find('.') == name.npos || name.find('<') != name.npos)
      continue;
    lines.insert("type " + name);
    if (type->kind == Kind::Enum) {
      for (const EnumType::Constant &constant : asEnum(*type).constants)
        lines.insert("value " + name + " " + constant.name);
    } else if (type->kind == Kind::Interface) {
      describe(name, asInterface(*type), lines);
    } else if (type->kind == Kind::Class) {
      for (const ClassType::Listed &listed : asClass(*type).interfaces)
        describe(name, *listed, lines);
      for (const ClassType::Listed &listed : asClass(*type).classSide)
        describe(name, *listed, lines);
    }
  }
  return lines;
}

} // namespace

int main(int count, char **arguments) {
  if (count < 3) {
    std::cerr << "Usage: apitable OUTPUT.cpp FILE.idl...\n";
    return 2;
  }
  std::deque<Source> sources; // positions point into it
  Diagnostics diagnostics;
  std::vector<syntax::Unit> units;
  for (int i = 2; i < count; ++i) {
    std::ifstream file(arguments[i], std::ios::binary);
    sources.emplace_back(arguments[i], std::string(std::istreambuf_iterator<char>(file), {}));
    units.push_back(parse(sources.back(), diagnostics));
  }
  std::unique_ptr<Model> model;
  if (!diagnostics.hasErrors())
    model = buildModel(units, diagnostics);
  if (diagnostics.hasErrors()) {
    diagnostics.print(std::cerr);
    return 1;
  }
  std::ofstream output(arguments[1]);
  output << "#include \"platform/linux/components/foundation/ApiTable.h\"\n\n"
            "namespace wrt::components {\n\nconst std::string_view kApiTable[] = {\n";
  const auto lines = describe(*model);
  for (const std::string &line : lines)
    output << "    \"" << line << "\",\n";
  output << "};\nconst size_t kApiTableSize = " << lines.size()
         << ";\n\n} // namespace wrt::components\n";
  return output.flush() ? 0 : 1;
}
