#include "generator/emit/Emit.h"

#include "generator/emit/Documentation.h"
#include "generator/emit/Parts.h"
#include "generator/project/ObjcType.h"

#include <algorithm>

namespace bridgegen {

namespace {

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
