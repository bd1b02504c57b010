#include "generator/metadata/Attributes.h"

#include <algorithm>
#include <array>

namespace bridgegen::metadata {

namespace {

constexpr std::string_view kNameSpace = "Windows.Foundation.Metadata";
constexpr std::array<std::string_view, 10> kNames{
    "ActivatableAttribute", "ApiContractAttribute",    "ComposableAttribute", "DefaultAttribute",
    "DeprecatedAttribute",  "GuidAttribute",           "LengthIsAttribute",   "OverloadAttribute",
    "StaticAttribute",      "ContractVersionAttribute"};

uint64_t key(Row row) { return uint64_t{static_cast<uint8_t>(row.table)} << 32 | row.number; }

/// The TypeDef whose list of methods has this one.
Row ownerOf(const Tables &tables, Row method) {
  uint32_t low = 1;
  uint32_t high = tables.count(Table::TypeDef);
  while (low < high) {
    const uint32_t middle = low + (high - low + 1) / 2;
    if (tables.number({Table::TypeDef, middle}, 5) <= method.number)
      low = middle;
    else
      high = middle - 1;
  }
  return {Table::TypeDef, low};
}

/// The name of the attribute if it is one that is read, else nothing.
std::string_view attributeName(const Tables &tables, Row constructor) {
  const Row type = constructor.table == Table::MethodDef ? ownerOf(tables, constructor)
                                                         : tables.target(constructor, 0);
  if ((type.table != Table::TypeDef && type.table != Table::TypeRef) || !type ||
      tables.string(type, 2) != kNameSpace)
    return {};
  const std::string_view name = tables.string(type, 1);
  return std::find(kNames.begin(), kNames.end(), name) == kNames.end() ? std::string_view() : name;
}

std::string text(Cursor &cursor) {
  if (cursor.peek() == 0xFF) { // a null string
    cursor.u8();
    return {};
  }
  return std::string(cursor.take(cursor.compressed()).text());
}

/// An argument of the type that stands at `types` (II.23.3).
Attribute::Argument argument(Cursor &types, Cursor &values) {
  const size_t at = types.offset();
  switch (const uint8_t element = types.u8(); element) {
  case 0x02:
  case 0x04:
  case 0x05:
    return values.number(1);
  case 0x03:
  case 0x06:
  case 0x07:
    return values.number(2);
  case 0x08:
  case 0x09:
  case 0x0C:
    return values.number(4);
  case 0x0A:
  case 0x0B:
  case 0x0D:
    return values.number(8);
  case 0x0E:
    return text(values);
  case 0x11: // an enumeration, of 32 bits in WinRT
    types.compressed();
    return values.number(4);
  case 0x12: // a System.Type
    types.compressed();
    return text(values);
  default:
    throw Fault{at, "an attribute with an argument of element " + std::to_string(element)};
  }
}

std::vector<Attribute::Argument> arguments(const Tables &tables, Row constructor, Bytes blob) {
  Cursor types(tables.blob(constructor, constructor.table == Table::MethodDef ? 4 : 2));
  types.u8();
  const uint32_t count = types.compressed();
  types.u8(); // the constructor returns nothing
  Cursor values(blob);
  if (values.number(2) != 1)
    throw Fault{blob.offset(), "an attribute's value does not begin with 1"};
  std::vector<Attribute::Argument> arguments;
  for (uint32_t i = 0; i < count; ++i)
    arguments.push_back(argument(types, values));
  return arguments;
}

} // namespace

const std::string *Attribute::text(size_t number) const {
  return number < arguments.size() ? std::get_if<std::string>(&arguments[number]) : nullptr;
}

uint64_t Attribute::number(size_t number) const {
  const uint64_t *value =
      number < arguments.size() ? std::get_if<uint64_t>(&arguments[number]) : nullptr;
  return value ? *value : 0;
}

Attributes::Attributes(const Tables &tables) {
  for (uint32_t i = 1; i <= tables.count(Table::CustomAttribute); ++i) {
    const Row row{Table::CustomAttribute, i};
    tables.in(row, [&] {
      const Row constructor = tables.target(row, 1);
      if (!constructor)
        throw Fault{tables.offset(row), "an attribute without a constructor"};
      if (const std::string_view name = attributeName(tables, constructor); !name.empty())
        byRow_[key(tables.target(row, 0))].push_back(
            {name, arguments(tables, constructor, tables.blob(row, 2))});
    });
  }
}

const std::vector<Attribute> &Attributes::of(Row row) const {
  static const std::vector<Attribute> kNone;
  const auto found = byRow_.find(key(row));
  return found == byRow_.end() ? kNone : found->second;
}

const Attribute *Attributes::find(Row row, std::string_view name) const {
  const std::vector<Attribute> &all = of(row);
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const Attribute &a) { return a.name == name; });
  return found == all.end() ? nullptr : &*found;
}

} // namespace bridgegen::metadata
