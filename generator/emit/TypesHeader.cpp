#include "generator/emit/Emit.h"

#include "generator/emit/Documentation.h"
#include "generator/emit/Parts.h"
#include "generator/project/ObjcType.h"

#include <algorithm>

namespace bridgegen {

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

/// The structures so that each stands behind those it contains.
std::vector<const StructType *> inOrderOfUse(const std::vector<const StructType *> &structs) {
  std::vector<const StructType *> ordered;
  const auto add = [&](const auto &self, const StructType *type) -> void {
    if (std::find(structs.begin(), structs.end(), type) == structs.end() ||
        std::find(ordered.begin(), ordered.end(), type) != ordered.end())
      return;
    for (const StructType::Field &field : type->fields) {
      if (field.type->kind == Kind::Struct)
        self(self, &asStruct(*field.type));
    }
    ordered.push_back(type);
  };
  for (const StructType *type : structs)
    add(add, type);
  return ordered;
}

void writeStruct(Writer &writer, const StructType &type) {
  writer.write("\n/// `%`%\ntypedef struct % {\n", type.name, measureOf(type), type.cName());
  for (const StructType::Field &field : type.fields) {
    if (field.type->isString())
      writer.write("  void *%; ///< an HSTRING\n", field.name);
    else
      writer.write("  % %;\n",
                   field.type->kind == Kind::Enum ? field.type->cName()
                                                  : valueSpelling(*field.type),
                   field.name);
  }
  writer.write("} %;\n", type.cName());
}

/// The product's stands in WRTTypes.h.
void writeExportMacro(Writer &writer, const Unit &unit) {
  const std::string macro = exportMacro(unit);
  writer.write("\n#if !defined(%)\n#if defined(WRT_BUILDING_%)\n#define % WRT_DLLEXPORT\n"
               "#else\n#define % WRT_DLLIMPORT\n#endif\n#endif\n",
               macro, macroPart(unit.target.name), macro, macro);
}

} // namespace

std::string emitTypesHeader(const Unit &unit, const Input &) {
  Writer writer;
  writeBanner(writer, unit);
  {
    const IncludeGuard guard(writer, unit, "TYPES_H");
    Units used;
    for (const StructType *type : unit.structs) {
      for (const StructType::Field &field : type->fields) {
        const bool isDeclared = field.type->kind == Kind::Struct || field.type->kind == Kind::Enum;
        if (isDeclared && field.type->unit != &unit)
          used.insert(field.type->unit);
      }
    }
    writer.append("#include <WRTObjcBridge/WRTTypes.h>\n");
    writeTypesIncludes(writer, used);
    if (unit.target.isAddOn())
      writeExportMacro(writer, unit);

    for (const EnumType *type : unit.enums)
      writeEnum(writer, *type);
    for (const StructType *type : inOrderOfUse(unit.structs))
      writeStruct(writer, *type);

    for (const InterfaceType *interface : unit.interfaces) {
      const std::string name = interface->cName();
      writer.write("\n/// `%`\ntypedef struct % %;\n", interface->name, name, name);
      if (interface->hasMembers())
        writer.write("struct % {\n  const struct %Vtbl *lpVtbl;\n};\n", name, name);
    }
  }
  return writer.text();
}

} // namespace bridgegen
