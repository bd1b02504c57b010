#include "generator/metadata/Schema.h"

#include <array>
#include <bit>
#include <vector>

namespace bridgegen::metadata {

namespace {

using enum Table;

constexpr Column fixed(uint8_t bytes) { return {Column::Kind::Fixed, bytes}; }
constexpr Column index(Table table) { return {Column::Kind::Index, static_cast<uint8_t>(table)}; }
constexpr Column coded(Coded kind) { return {Column::Kind::Coded, static_cast<uint8_t>(kind)}; }
constexpr Column kString{Column::Kind::String, 0};
constexpr Column kGuid{Column::Kind::Guid, 0};
constexpr Column kBlob{Column::Kind::Blob, 0};

struct Description {
  const char *name;
  std::vector<Column> columns;
};

const std::array<Description, kTables> &descriptions() {
  static const std::array<Description, kTables> tables{{
      {"Module", {fixed(2), kString, kGuid, kGuid, kGuid}},
      {"TypeRef", {coded(Coded::ResolutionScope), kString, kString}},
      {"TypeDef",
       {fixed(4), kString, kString, coded(Coded::TypeDefOrRef), index(Field), index(MethodDef)}},
      {"FieldPtr", {index(Field)}},
      {"Field", {fixed(2), kString, kBlob}},
      {"MethodPtr", {index(MethodDef)}},
      {"MethodDef", {fixed(4), fixed(2), fixed(2), kString, kBlob, index(Param)}},
      {"ParamPtr", {index(Param)}},
      {"Param", {fixed(2), fixed(2), kString}},
      {"InterfaceImpl", {index(TypeDef), coded(Coded::TypeDefOrRef)}},
      {"MemberRef", {coded(Coded::MemberRefParent), kString, kBlob}},
      {"Constant", {fixed(2), coded(Coded::HasConstant), kBlob}},
      {"CustomAttribute",
       {coded(Coded::HasCustomAttribute), coded(Coded::CustomAttributeType), kBlob}},
      {"FieldMarshal", {coded(Coded::HasFieldMarshal), kBlob}},
      {"DeclSecurity", {fixed(2), coded(Coded::HasDeclSecurity), kBlob}},
      {"ClassLayout", {fixed(2), fixed(4), index(TypeDef)}},
      {"FieldLayout", {fixed(4), index(Field)}},
      {"StandAloneSig", {kBlob}},
      {"EventMap", {index(TypeDef), index(Event)}},
      {"EventPtr", {index(Event)}},
      {"Event", {fixed(2), kString, coded(Coded::TypeDefOrRef)}},
      {"PropertyMap", {index(TypeDef), index(Property)}},
      {"PropertyPtr", {index(Property)}},
      {"Property", {fixed(2), kString, kBlob}},
      {"MethodSemantics", {fixed(2), index(MethodDef), coded(Coded::HasSemantics)}},
      {"MethodImpl", {index(TypeDef), coded(Coded::MethodDefOrRef), coded(Coded::MethodDefOrRef)}},
      {"ModuleRef", {kString}},
      {"TypeSpec", {kBlob}},
      {"ImplMap", {fixed(2), coded(Coded::MemberForwarded), kString, index(ModuleRef)}},
      {"FieldRVA", {fixed(4), index(Field)}},
      {"EncLog", {fixed(4), fixed(4)}},
      {"EncMap", {fixed(4)}},
      {"Assembly",
       {fixed(4), fixed(2), fixed(2), fixed(2), fixed(2), fixed(4), kBlob, kString, kString}},
      {"AssemblyProcessor", {fixed(4)}},
      {"AssemblyOS", {fixed(4), fixed(4), fixed(4)}},
      {"AssemblyRef",
       {fixed(2), fixed(2), fixed(2), fixed(2), fixed(4), kBlob, kString, kString, kBlob}},
      {"AssemblyRefProcessor", {fixed(4), index(AssemblyRef)}},
      {"AssemblyRefOS", {fixed(4), fixed(4), fixed(4), index(AssemblyRef)}},
      {"File", {fixed(4), kString, kBlob}},
      {"ExportedType", {fixed(4), fixed(4), kString, kString, coded(Coded::Implementation)}},
      {"ManifestResource", {fixed(4), fixed(4), kString, coded(Coded::Implementation)}},
      {"NestedClass", {index(TypeDef), index(TypeDef)}},
      {"GenericParam", {fixed(2), fixed(2), coded(Coded::TypeOrMethodDef), kString}},
      {"MethodSpec", {coded(Coded::MethodDefOrRef), kBlob}},
      {"GenericParamConstraint", {index(GenericParam), coded(Coded::TypeDefOrRef)}},
  }};
  return tables;
}

const std::vector<uint8_t> &tags(Coded kind) {
  const auto list = [](std::initializer_list<Table> tables) {
    std::vector<uint8_t> numbers;
    for (const Table table : tables)
      numbers.push_back(static_cast<uint8_t>(table));
    return numbers;
  };
  static const std::array<std::vector<uint8_t>, 13> lists{
      list({TypeDef, TypeRef, TypeSpec}),
      list({Field, Param, Property}),
      list({MethodDef,        Field,        TypeRef,
            TypeDef,          Param,        InterfaceImpl,
            MemberRef,        Module,       DeclSecurity,
            Property,         Event,        StandAloneSig,
            ModuleRef,        TypeSpec,     Assembly,
            AssemblyRef,      File,         ExportedType,
            ManifestResource, GenericParam, GenericParamConstraint,
            MethodSpec}),
      list({Field, Param}),
      list({TypeDef, MethodDef, Assembly}),
      list({TypeDef, TypeRef, ModuleRef, MethodDef, TypeSpec}),
      list({Event, Property}),
      list({MethodDef, MemberRef}),
      list({Field, MethodDef}),
      list({File, AssemblyRef, ExportedType}),
      {kTables, kTables, static_cast<uint8_t>(MethodDef), static_cast<uint8_t>(MemberRef), kTables},
      list({Module, ModuleRef, AssemblyRef, TypeRef}),
      list({TypeDef, MethodDef})};
  return lists[static_cast<size_t>(kind)];
}

} // namespace

const char *tableName(Table table) { return descriptions()[static_cast<size_t>(table)].name; }

std::span<const Column> columnsOf(Table table) {
  return descriptions()[static_cast<size_t>(table)].columns;
}

std::span<const uint8_t> tablesOf(Coded index) { return tags(index); }

unsigned tagBits(Coded index) {
  return static_cast<unsigned>(std::bit_width(tags(index).size() - 1));
}

} // namespace bridgegen::metadata
