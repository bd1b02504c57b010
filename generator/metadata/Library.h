#ifndef WRT_GENERATOR_METADATA_LIBRARY_H
#define WRT_GENERATOR_METADATA_LIBRARY_H

#include "generator/metadata/Definition.h"

#include <deque>
#include <map>

namespace bridgegen::metadata {

/// The types of all files of a run.
class Library {
public:
  /// Reads a file. Throws `Refused` when it is broken or defines a type of an earlier one.
  void add(const std::string &path, std::string_view contents);

  /// By full name, or null.
  const Definition *find(const std::string &fullName) const;
  /// In the order of the files and their tables.
  const std::deque<Definition> &definitions() const { return definitions_; }

  /// How the interface appears on classes: `Statics`, `Factory`, or `Full` when it is no class's
  /// side. A factory that only makes subclasses has none.
  std::optional<syntax::Form> roleOf(const std::string &interface) const;

private:
  void addRoles(const Definition &definition);

  std::deque<Tables> files_;
  std::deque<Definition> definitions_;
  std::map<std::string, const Definition *> byName_;
  std::map<std::string, std::optional<syntax::Form>> roles_;
};

} // namespace bridgegen::metadata

#endif
