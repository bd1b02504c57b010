#ifndef WRT_TESTS_SWEEP_IDENTIFIERS_H
#define WRT_TESTS_SWEEP_IDENTIFIERS_H

#include "HostObject.h"

#include <map>
#include <string>

namespace wrt::sweep {

/// What bridges ask for and what they activate, as `identifiers.tsv` has it.
struct Identifiers {
  /// By the name that the catalogue gives to interfaces.
  std::map<std::string, emulator::Iid> interfaces;
  /// By the name of the bridge class, of a runtime class that of its default interface.
  std::map<std::string, emulator::Iid> bridges;
  /// WinRT's names by that of the bridge class.
  std::map<std::string, std::u16string> classes;

  /// Throws as `catalogue::readIdentifiers` does.
  static Identifiers read(const std::string &file);
};

} // namespace wrt::sweep

#endif
