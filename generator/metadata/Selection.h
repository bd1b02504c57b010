#ifndef WRT_GENERATOR_METADATA_SELECTION_H
#define WRT_GENERATOR_METADATA_SELECTION_H

#include "generator/metadata/Types.h"

namespace bridgegen::metadata {

/// What an import is asked for. With neither types nor namespaces it is everything.
struct Wanted {
  std::vector<std::string> nameSpaces;
  std::vector<std::string> types;   ///< full names, also of instances
  std::vector<std::string> proxies; ///< in no more than this form
};

/// A type that is to be declared.
struct Selected {
  const Definition *definition = nullptr;
  syntax::Form form = syntax::Form::Extern;
  std::vector<DeclaredMember> members; ///< of an interface that has any
  std::vector<TypeName> interfaces;    ///< of a class, as far as they can be listed
  bool isNamed = false;                ///< selected itself, and not only needed by something
};

/// An instance that is to be listed.
struct SelectedInstance {
  TypeName type;
  syntax::Form form = syntax::Form::Full;
  std::string nameSpace; ///< of the type that needed it first
};

/// What is wanted together with everything that it needs, each in the least form that serves.
class Selection {
public:
  /// `types` must outlive this. Throws `Refused`.
  Selection(const Types &types, const Wanted &wanted);

  /// In the order of the files.
  const std::vector<Selected> &types() const { return ordered_; }
  /// By name.
  const std::map<std::string, SelectedInstance> &instances() const { return instances_; }
  /// What was left out or pulled in, a line each.
  const std::vector<std::string> &notes() const { return notes_; }

private:
  /// Who needs something, for messages and for the place of instances.
  struct Needer {
    Place place;
    std::string nameSpace;
  };

  void select(const Wanted &wanted);
  void select(const std::string &name, syntax::Form form);
  void listWanted();
  void select(const Definition &definition, bool isByName);
  void raise(const Definition &definition, syntax::Form form);
  void complete(const Definition &definition);
  void completeInterface(Selected &selected);
  void completeClass(Selected &selected);
  void need(const TypeName &type, syntax::Form form, const Needer &needer);
  void needInstance(const TypeName &type, syntax::Form form, const Needer &needer);
  void list(const TypeName &type, syntax::Form form, const Needer &needer);
  void needMembers(const std::vector<DeclaredMember> &members, const Needer &needer);
  void note(const Definition &definition, const std::string &text);

  const Types &types_;
  std::map<std::string, Selected> selected_;
  std::map<std::string, SelectedInstance> instances_;
  std::map<std::string, std::pair<TypeName, syntax::Form>> wantedInstances_;
  std::set<std::string> delegates_; ///< instances whose arguments have been looked at
  std::deque<const Definition *> waiting_;
  std::vector<Selected> ordered_;
  std::vector<std::string> notes_;
  size_t knownTypes_ = 0; ///< that were not asked for by name
};

} // namespace bridgegen::metadata

#endif
