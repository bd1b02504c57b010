#ifndef WRT_TESTS_SWEEP_IDENTIFIERS_H
#define WRT_TESTS_SWEEP_IDENTIFIERS_H

#include "HostObject.h"

#include <filesystem>
#include <map>
#include <string>

namespace wrt::sweep {

/// The generator's second table, `identifiers.tsv`: what bridges ask for and what they activate.
struct Identifiers {
  struct RuntimeClass {
    /// WinRT's.
    std::u16string name;
    /// The name of the interface that stands for the class, or `-`.
    std::string interface;
  };

  /// By the name that the catalogue gives to interfaces.
  std::map<std::string, emulator::Iid> interfaces;
  /// By the name of the bridge class, of a runtime class that of its default interface.
  std::map<std::string, emulator::Iid> bridges;
  /// By the name of the bridge class.
  std::map<std::string, RuntimeClass> classes;

  /// Throws `pe::FormatError` with the line's number.
  static Identifiers read(const std::filesystem::path &file);
};

} // namespace wrt::sweep

#endif
