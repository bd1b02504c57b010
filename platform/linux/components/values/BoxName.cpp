#include "platform/linux/components/values/BoxName.h"

#include <utility>

namespace wrt::implement {
namespace {

std::string_view typeName(std::string_view signature) {
  static constexpr std::pair<std::string_view, std::string_view> kNames[] = {
      {"b1", "Boolean"},    {"c2", "Char16"}, {"cinterface(IInspectable)", "Object"},
      {"f4", "Single"},     {"f8", "Double"}, {"g16", "Guid"},
      {"i2", "Int16"},      {"i4", "Int32"},  {"i8", "Int64"},
      {"string", "String"}, {"u1", "UInt8"},  {"u2", "UInt16"},
      {"u4", "UInt32"},     {"u8", "UInt64"},
  };
  for (const auto &[known, name] : kNames) {
    if (known == signature)
      return name;
  }
  // enum(Full.Name;i4), struct(Full.Name;...)
  for (const std::string_view kind : {"enum(", "struct("}) {
    if (signature.starts_with(kind))
      return signature.substr(kind.size(), signature.find(';') - kind.size());
  }
  return {};
}

} // namespace

std::u16string boxName(std::string_view interface, std::string_view signature) {
  const std::string_view type = typeName(signature);
  std::string name;
  if (!type.empty())
    ((((name += "Windows.Foundation.") += interface) += "`1<") += type) += '>';
  return {name.begin(), name.end()};
}

} // namespace wrt::implement
