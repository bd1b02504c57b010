#ifndef WRT_GENERATOR_METADATA_TYPES_H
#define WRT_GENERATOR_METADATA_TYPES_H

#include "generator/metadata/Known.h"
#include "generator/metadata/Library.h"

namespace bridgegen::metadata {

/// What a name may stand for.
enum class Sort {
  Unknown,
  BuiltIn,
  Enumeration,
  Structure,
  Delegate,
  Interface,
  Class,
  InterfaceFamily,
  DelegateFamily
};

/// The types that an import can name: those of the metadata and those that are known already. What
/// declarations can say of a member is decided here.
class Types {
public:
  /// Both must outlive this.
  Types(const Library &library, const Known &known) : library_(library), known_(known) {}

  const Library &library() const { return library_; }
  const Known &known() const { return known_; }

  /// What the name stands for without its arguments; known types win.
  Sort sortOf(const std::string &fullName) const;
  bool isKnown(const std::string &fullName) const;
  /// The family of this name; there must be one.
  const Family &family(const std::string &fullName) const;

  /// Why a value of the type cannot cross, or nothing. Refuses unknown types at `place`.
  std::string problem(const TypeName &type, const Place &place) const;
  /// Why the delegate or structure itself cannot be declared, or nothing.
  std::string problem(const Definition &definition) const;

  /// The slots of the interface's table as declarations have them: those that cannot be bridged are
  /// reserved.
  std::vector<DeclaredMember> members(const Definition &interface) const;

private:
  std::string argumentProblem(const TypeName &argument, const Place &place) const;
  std::string classProblem(const std::string &fullName) const;
  std::string delegateProblem(const Definition &delegate) const;

  const Library &library_;
  const Known &known_;
  mutable std::map<std::string, Family> families_; ///< of the library, as they are asked for
  mutable std::map<std::string, std::string> problems_;
};

} // namespace bridgegen::metadata

#endif
