#ifndef WRT_TESTS_IDENTIFIERS_H
#define WRT_TESTS_IDENTIFIERS_H

#include <array>
#include <cstdint>
#include <map>
#include <string>

namespace wrt::test {

/// An identifier as it lies in memory.
using Iid = std::array<std::uint8_t, 16>;

/// One in its usual form, without braces.
Iid parseIid(std::string text);

/// What bridges ask for and what they activate, as `identifiers.tsv` has it.
struct Identifiers {
  /// By the name that the catalogue gives to interfaces.
  std::map<std::string, Iid> interfaces;
  /// By the name of the bridge class, of a runtime class that of its default interface.
  std::map<std::string, Iid> bridges;
  /// WinRT's names by that of the bridge class.
  std::map<std::string, std::u16string> classes;

  /// Throws as `catalogue::readIdentifiers` does.
  static Identifiers read(const std::string &file);
};

} // namespace wrt::test

#endif
