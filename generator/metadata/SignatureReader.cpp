#include "generator/metadata/SignatureReader.h"

#include <map>

namespace bridgegen::metadata {

namespace {

// Elements of signatures (II.23.1.16).
enum Element : uint8_t {
  kVoid = 0x01,
  kByReference = 0x10,
  kValueType = 0x11,
  kClass = 0x12,
  kTypeParameter = 0x13,
  kInstance = 0x15,
  kArray = 0x1D,
  kRequiredModifier = 0x1F,
  kOptionalModifier = 0x20
};

constexpr uint8_t kFieldSignature = 0x06;
constexpr uint8_t kGenericMethod = 0x10;
/// Deeper than anything that is written by hand.
constexpr unsigned kDeepest = 16;

const char *builtIn(uint8_t element) {
  switch (element) {
  case 0x02:
    return "Boolean";
  case 0x03:
    return "Char16";
  case 0x05:
    return "UInt8";
  case 0x06:
    return "Int16";
  case 0x07:
    return "UInt16";
  case 0x08:
    return "Int32";
  case 0x09:
    return "UInt32";
  case 0x0A:
    return "Int64";
  case 0x0B:
    return "UInt64";
  case 0x0C:
    return "Single";
  case 0x0D:
    return "Double";
  case 0x0E:
    return "String";
  case 0x1C:
    return "Object";
  default:
    return nullptr;
  }
}

/// Types that declarations have built in and metadata defines.
std::string projected(const std::string &name) {
  static const std::map<std::string, std::string, std::less<>> names{
      {"System.Guid", "Guid"},
      {"System.Object", "Object"},
      {"Windows.Foundation.EventRegistrationToken", "EventRegistrationToken"},
      {"Windows.Foundation.HResult", "HResult"}};
  const auto found = names.find(name);
  return found == names.end() ? name : found->second;
}

TypeName plain(std::string name) { return {{std::move(name), {}}, {}}; }

bool isModifier(uint8_t element) {
  return element == kRequiredModifier || element == kOptionalModifier;
}

} // namespace

std::string typeName(const Tables &tables, Row row) {
  if (row.table != Table::TypeDef && row.table != Table::TypeRef)
    throw Fault{tables.offset(row), "expected a type by name"};
  const std::string_view nameSpace = tables.string(row, 2);
  std::string_view name = tables.string(row, 1);
  name = name.substr(0, name.find('`'));
  return (nameSpace.empty() ? "" : std::string(nameSpace) + ".") + std::string(name);
}

std::vector<SignatureType> SignatureReader::method(Bytes blob) const {
  Cursor cursor(blob);
  if (cursor.u8() & kGenericMethod)
    throw Fault{cursor.offset() - 1, "a method with type parameters"};
  const uint32_t count = cursor.compressed();
  // Each takes a byte at least.
  if (count > blob.size())
    throw Fault{cursor.offset(), std::to_string(count) + " parameters in a signature of " +
                                     std::to_string(blob.size()) + " bytes"};
  std::vector<SignatureType> types;
  for (uint32_t i = 0; i <= count; ++i) {
    types.push_back(parameter(cursor));
    if (i && !types.back().type)
      throw Fault{cursor.offset(), "a parameter of type 'void'"};
  }
  if (!cursor.atEnd())
    throw Fault{cursor.offset(), "bytes behind the end of a signature"};
  return types;
}

TypeName SignatureReader::field(Bytes blob) const {
  Cursor cursor(blob);
  if (cursor.u8() != kFieldSignature)
    throw Fault{cursor.offset() - 1, "no signature of a field"};
  return argument(cursor, 0);
}

TypeName SignatureReader::type(Row row) const {
  if (row.table != Table::TypeSpec)
    return plain(projected(typeName(tables_, row)));
  Cursor cursor(tables_.blob(row, 0));
  return argument(cursor, 0);
}

SignatureType SignatureReader::parameter(Cursor &cursor) const {
  SignatureType read;
  for (;;) {
    const uint8_t element = cursor.peek();
    if (element == kByReference && !read.isArray && !read.isByReference) {
      read.isByReference = true;
    } else if (element == kArray && !read.isArray) {
      read.isArray = true;
    } else if (!isModifier(element)) {
      break;
    }
    cursor.u8();
    if (isModifier(element)) {
      const size_t at = cursor.offset();
      typeName(tables_, tables_.decode(Coded::TypeDefOrRef, cursor.compressed(), at));
      read.isConst = true;
    }
  }
  read.type = type(cursor, 0);
  if (!read.type && (read.isArray || read.isByReference))
    throw Fault{cursor.offset(), "an array or reference of type 'void'"};
  return read;
}

std::optional<TypeName> SignatureReader::type(Cursor &cursor, unsigned depth) const {
  if (depth > kDeepest)
    throw Fault{cursor.offset(), "type arguments nested too deeply"};
  const size_t at = cursor.offset();
  const uint8_t element = cursor.u8();
  if (const char *name = builtIn(element))
    return plain(name);
  switch (element) {
  case kVoid:
    return std::nullopt;
  case kValueType:
  case kClass:
    return plain(projected(named(cursor)));
  case kTypeParameter: {
    const uint32_t number = cursor.compressed();
    if (number >= typeParameters_.size())
      throw Fault{at, "type parameter " + std::to_string(number) + " of " +
                          std::to_string(typeParameters_.size())};
    return plain(typeParameters_[number]);
  }
  case kInstance: {
    if (const uint8_t kind = cursor.u8(); kind != kClass && kind != kValueType)
      throw Fault{at, "an instance of something else than a type"};
    TypeName instance = plain(named(cursor));
    const uint32_t count = cursor.compressed();
    for (uint32_t i = 0; i < count; ++i)
      instance.arguments.push_back(argument(cursor, depth + 1));
    return instance;
  }
  default:
    throw Fault{at, "a type that WinRT does not have (element " + std::to_string(element) + ")"};
  }
}

TypeName SignatureReader::argument(Cursor &cursor, unsigned depth) const {
  const size_t at = cursor.offset();
  std::optional<TypeName> type = this->type(cursor, depth);
  if (!type)
    throw Fault{at, "'void' where a type is needed"};
  return std::move(*type);
}

std::string SignatureReader::named(Cursor &cursor) const {
  const size_t at = cursor.offset();
  const Row row = tables_.decode(Coded::TypeDefOrRef, cursor.compressed(), at);
  if (!row)
    throw Fault{at, "a type without a row"};
  return typeName(tables_, row);
}

} // namespace bridgegen::metadata
