#ifndef WRT_GENERATOR_SCOPE_H
#define WRT_GENERATOR_SCOPE_H

#include "generator/model/Model.h"

namespace bridgegen {

/// A generic interface or delegate before it is instantiated.
struct Family {
  std::string nameSpace;
  std::string name; ///< in full
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

  /// Everything that `name` may mean in `nameSpace`: the full names if it is dotted; otherwise the
  /// name in the namespace itself, or else those of all units.
  std::vector<Entry> find(const std::string &nameSpace, const std::string &name) const;

private:
  std::map<std::string, Entry> byFullName_;
  std::map<std::string, std::vector<Entry>> bySimpleName_;
};

/// `nameSpace.simpleName`, or the simple name alone in the global namespace.
std::string fullName(const std::string &nameSpace, const std::string &simpleName);

} // namespace bridgegen

#endif
