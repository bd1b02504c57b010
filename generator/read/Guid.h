#ifndef WRT_GENERATOR_GUID_H
#define WRT_GENERATOR_GUID_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bridgegen {

/// An interface identifier. The bytes are in the order in which the text form shows them.
struct Guid {
  std::array<uint8_t, 16> bytes{};

  auto operator<=>(const Guid &) const = default;

  /// Reads `5a648006-843a-4da9-865b-9d26e5dfad7b`, without braces, in either case.
  static std::optional<Guid> parse(std::string_view text);

  /// As `parse` reads it, in lower case (type signatures) or upper case (documentation).
  std::string lower() const;
  std::string upper() const;
  /// The initializer of a C `GUID`: `{0x5A648006, 0x843A, 0x4DA9, {0x86, ...}}`.
  std::string initializer() const;
};

} // namespace bridgegen

#endif
