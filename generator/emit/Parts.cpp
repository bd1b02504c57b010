#include "generator/emit/Parts.h"

#include "generator/emit/Outputs.h"

#include <cctype>

namespace bridgegen {

void writeBanner(Writer &writer, const Unit &unit) {
  writer.write("%%.idl.\n", kBanner, unit.name);
}

IncludeGuard::IncludeGuard(Writer &writer, const Unit &unit, std::string_view suffix)
    : writer_(writer) {
  // A program may include units of one name from several libraries.
  const std::string name = "WRT_" +
                           (unit.target.isAddOn() ? macroPart(unit.target.name) + "_" : "") +
                           macroPart(unit.name);
  writer.write("#ifndef %_%\n#define %_%\n\n", name, suffix, name, suffix);
}

IncludeGuard::~IncludeGuard() { writer_.append("\n#endif\n"); }

void writeTypesIncludes(Writer &writer, const Units &units) {
  for (const Unit *unit : units)
    writer.write("#include %\n", includeName(emitTypesHeader, *unit));
}

std::string macroPart(const std::string &name) {
  std::string part;
  for (const char c : name)
    part += std::isalnum(static_cast<unsigned char>(c))
                ? static_cast<char>(std::toupper(static_cast<unsigned char>(c)))
                : '_';
  return part;
}

std::string exportMacro(const Unit &unit) {
  return "WRT_" + (unit.target.isAddOn() ? macroPart(unit.target.name) : "BRIDGE") + "_API";
}

namespace {

std::string hexadecimal(int64_t value) {
  std::string digits;
  for (; value != 0 || digits.empty(); value >>= 4)
    digits.insert(digits.begin(), "0123456789ABCDEF"[value & 15]);
  return "0x" + digits;
}

/// A flag beyond the positive numbers, 0x80000000, is written as `~0x7FFFFFFF`: still an `int`.
std::string valueOf(const EnumType &type, int64_t value) {
  if (!type.isFlags)
    return std::to_string(value);
  const bool isNegative = static_cast<int32_t>(value) < 0;
  return isNegative ? "~" + hexadecimal(~value & UINT32_MAX) : hexadecimal(value);
}

} // namespace

void writeEnum(Writer &writer, const EnumType &type) {
  writer.write("\n/// `%`\n", type.name);
  if (type.constants.empty()) {
    writer.write("typedef int %;\n", type.cName());
    return;
  }
  // Some values have bits for which there is no constant, which is not for us to say.
  const bool isOdd = type.isFlags && type.hasUnnamedFlags();
  if (isOdd)
    writer.append("#pragma clang diagnostic push\n"
                  "#pragma clang diagnostic ignored \"-Wflag-enum\"\n");
  writer.write("typedef %(%) {\n", type.isFlags ? "WRT_OPTIONS" : "WRT_ENUM", type.cName());
  for (const EnumType::Constant &constant : type.constants)
    writer.write("  %% = %,\n", type.cName(), constant.name, valueOf(type, constant.value));
  writer.append("};\n");
  if (isOdd)
    writer.append("#pragma clang diagnostic pop\n");
}

std::vector<const Type *> namedTypes(const DelegateType &delegate) {
  std::vector<const Type *> types;
  for (const DelegateType::Argument &argument : delegate.arguments)
    types.push_back(argument.type);
  if (delegate.result)
    types.push_back(delegate.result);
  return types;
}

std::vector<const Type *> namedTypes(const InterfaceType &interface) {
  std::vector<const Type *> types;
  const auto add = [&](const Type *type) {
    types.push_back(type);
    if (type->isDelegate()) {
      for (const Type *inner : namedTypes(asDelegate(*type)))
        types.push_back(inner);
    }
  };
  for (const Member &member : interface.members) {
    if (!member.isBridged())
      continue;
    if (member.result)
      add(member.result);
    for (const Parameter &parameter : member.parameters)
      add(parameter.type);
  }
  return types;
}

std::vector<const Type *> namedTypes(const Unit &unit) {
  std::vector<const Type *> types;
  const auto add = [&](const std::vector<const Type *> &named) {
    types.insert(types.end(), named.begin(), named.end());
  };
  for (const InterfaceType *interface : unit.interfaces)
    add(namedTypes(*interface));
  for (const DelegateType *delegate : unit.delegates)
    add(namedTypes(*delegate));
  return types;
}

} // namespace bridgegen
