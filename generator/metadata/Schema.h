#ifndef WRT_GENERATOR_METADATA_SCHEMA_H
#define WRT_GENERATOR_METADATA_SCHEMA_H

#include <cstdint>
#include <span>

namespace bridgegen::metadata {

/// The tables by their numbers (ECMA-335, II.22).
enum class Table : uint8_t {
  Module = 0x00,
  TypeRef = 0x01,
  TypeDef = 0x02,
  FieldPtr = 0x03,
  Field = 0x04,
  MethodPtr = 0x05,
  MethodDef = 0x06,
  ParamPtr = 0x07,
  Param = 0x08,
  InterfaceImpl = 0x09,
  MemberRef = 0x0A,
  Constant = 0x0B,
  CustomAttribute = 0x0C,
  FieldMarshal = 0x0D,
  DeclSecurity = 0x0E,
  ClassLayout = 0x0F,
  FieldLayout = 0x10,
  StandAloneSig = 0x11,
  EventMap = 0x12,
  EventPtr = 0x13,
  Event = 0x14,
  PropertyMap = 0x15,
  PropertyPtr = 0x16,
  Property = 0x17,
  MethodSemantics = 0x18,
  MethodImpl = 0x19,
  ModuleRef = 0x1A,
  TypeSpec = 0x1B,
  ImplMap = 0x1C,
  FieldRva = 0x1D,
  EncLog = 0x1E,
  EncMap = 0x1F,
  Assembly = 0x20,
  AssemblyProcessor = 0x21,
  AssemblyOs = 0x22,
  AssemblyRef = 0x23,
  AssemblyRefProcessor = 0x24,
  AssemblyRefOs = 0x25,
  File = 0x26,
  ExportedType = 0x27,
  ManifestResource = 0x28,
  NestedClass = 0x29,
  GenericParam = 0x2A,
  MethodSpec = 0x2B,
  GenericParamConstraint = 0x2C
};
constexpr unsigned kTables = 0x2D;

/// An index whose low bits say into which table (II.24.2.6).
enum class Coded : uint8_t {
  TypeDefOrRef,
  HasConstant,
  HasCustomAttribute,
  HasFieldMarshal,
  HasDeclSecurity,
  MemberRefParent,
  HasSemantics,
  MethodDefOrRef,
  MemberForwarded,
  Implementation,
  CustomAttributeType,
  ResolutionScope,
  TypeOrMethodDef
};

/// What stands in a column of a table.
struct Column {
  enum class Kind : uint8_t { Fixed, String, Guid, Blob, Index, Coded };
  Kind kind;
  uint8_t argument; ///< bytes, table or coded index
};

/// The name of a table as the standard writes it.
const char *tableName(Table table);
std::span<const Column> columnsOf(Table table);

/// The tables of a coded index in the order of its tags; `kTables` stands for a tag without a use.
std::span<const uint8_t> tablesOf(Coded index);
/// How many low bits the tag takes.
unsigned tagBits(Coded index);

} // namespace bridgegen::metadata

#endif
