#ifndef WRT_GENERATOR_SCOPE_H
#define WRT_GENERATOR_SCOPE_H

#include "generator/model/Model.h"

#include <set>

namespace bridgegen {

/// A generic interface or delegate before it is instantiated.
struct Family {
  const syntax::Section *section = nullptr; ///< where its members are looked up
  std::string name;                         ///< in full
  std::string bridgeName;
  std::string booleanSpelling; ///< of a `Boolean` argument, in the names of instances
  const std::vector<Name> *typeParameters = nullptr;
  Guid iid;
  const Unit *unit = nullptr;
  Position at;
  const syntax::Family *interface = nullptr; ///< one of the two is set
  const syntax::Delegate *delegate = nullptr;
};

/// What a name may stand for: one of the two is set.
struct Entry {
  Type *type = nullptr;
  const Family *family = nullptr;
};

/// The names of all units.
class Scope {
public:
  /// Adds a name; false when it is there already.
  bool add(const std::string &nameSpace, const std::string &simpleName, Entry entry);

  /// Everything that `name` may mean in a section of a file: the type in the section's own
  /// namespace, or else those in the namespaces that it uses, or else the one of this full name.
  std::vector<Entry> find(const syntax::Section &section, const std::string &name) const;

  /// The full names of all types that have the simple name.
  std::vector<std::string> namesakes(const std::string &simpleName) const;
  bool hasNamespace(const std::string &nameSpace) const { return nameSpaces_.contains(nameSpace); }

private:
  std::map<std::string, Entry> byFullName_;
  std::multimap<std::string, std::string> bySimpleName_; ///< full names
  std::set<std::string> nameSpaces_;
};

/// `nameSpace.simpleName`, or the simple name alone in the global namespace.
std::string fullName(const std::string &nameSpace, const std::string &simpleName);

} // namespace bridgegen

#endif
