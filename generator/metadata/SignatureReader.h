#ifndef WRT_GENERATOR_METADATA_SIGNATURE_READER_H
#define WRT_GENERATOR_METADATA_SIGNATURE_READER_H

#include "generator/metadata/Definition.h"

namespace bridgegen::metadata {

/// The full name that a TypeDef or TypeRef row has, without the mark of its arity. Throws `Fault`.
std::string typeName(const Tables &tables, Row row);

/// What stands for one parameter or result of a signature; nothing for `void`.
struct SignatureType {
  std::optional<TypeName> type;
  bool isArray = false;
  bool isByReference = false;
  bool isConst = false;
};

/// Reads the signatures of fields, methods and type specifications (II.23.2) with the type
/// parameters of the type that they stand in. Throws `Fault`.
class SignatureReader {
public:
  SignatureReader(const Tables &tables, std::span<const std::string> typeParameters)
      : tables_(tables), typeParameters_(typeParameters) {}

  /// The result and then the parameters of a method.
  std::vector<SignatureType> method(Bytes blob) const;
  TypeName field(Bytes blob) const;
  /// The type that a TypeDef, TypeRef or TypeSpec row means.
  TypeName type(Row row) const;

private:
  SignatureType parameter(Cursor &cursor) const;
  std::optional<TypeName> type(Cursor &cursor, unsigned depth) const;
  TypeName argument(Cursor &cursor, unsigned depth) const;
  std::string named(Cursor &cursor) const;

  const Tables &tables_;
  std::span<const std::string> typeParameters_;
};

} // namespace bridgegen::metadata

#endif
