#ifndef WRT_GENERATOR_METADATA_ATTRIBUTES_H
#define WRT_GENERATOR_METADATA_ATTRIBUTES_H

#include "generator/metadata/Tables.h"

#include <unordered_map>
#include <variant>
#include <vector>

namespace bridgegen::metadata {

/// A custom attribute of `Windows.Foundation.Metadata` with the arguments of its constructor:
/// numbers, and strings and types by their texts.
struct Attribute {
  using Argument = std::variant<uint64_t, std::string>;

  std::string_view name; ///< `GuidAttribute`
  std::vector<Argument> arguments;

  /// The text of an argument; null when there is none or it is a number.
  const std::string *text(size_t number) const;
  /// The number of an argument; 0 when there is none or it is a text.
  uint64_t number(size_t number) const;
};

/// The attributes that mean something to bridges, by the row that they are of.
class Attributes {
public:
  /// Throws `Refused`. `tables` must outlive this.
  explicit Attributes(const Tables &tables);

  /// In the order of the table.
  const std::vector<Attribute> &of(Row row) const;
  /// The first of this name, or null.
  const Attribute *find(Row row, std::string_view name) const;

private:
  std::unordered_map<uint64_t, std::vector<Attribute>> byRow_;
};

} // namespace bridgegen::metadata

#endif
