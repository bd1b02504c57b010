#ifndef WRT_GENERATOR_METADATA_DEFINITION_H
#define WRT_GENERATOR_METADATA_DEFINITION_H

#include "generator/metadata/Tables.h"
#include "generator/read/Syntax.h"

#include <memory>

/// What metadata says of a type, read out of the tables.
namespace bridgegen::metadata {

/// A type's use, by full names; built-in types and type parameters by the names that declarations
/// use.
using syntax::TypeName;

/// A row of a file, for messages, or the command line. Its file must outlive it.
struct Place {
  const Tables *tables = nullptr;
  Row row;

  [[noreturn]] void refuse(const std::string &problem) const {
    if (!tables)
      throw Refused("error: " + problem);
    tables->refuse(row, problem);
  }
};

struct Parameter {
  std::string name;
  TypeName type; ///< the element's, of an array
  bool isArray = false;
  bool isByReference = false;
  bool isConst = false; ///< by reference and not to be changed
  bool isOut = false;
  /// The number of the parameter that tells how much of the array was filled; 0 for the result.
  std::optional<uint32_t> lengthIs;
};

struct Method {
  enum class Role { Method, Getter, Setter, EventAdd, EventRemove };

  Role role = Role::Method;
  std::string name;           ///< of the property or event, or the method's unique one
  std::string overloadedName; ///< that the overloads share; empty when it is `name`
  std::vector<Parameter> parameters;
  std::optional<TypeName> result; ///< the element's, of an array
  bool returnsArray = false;
  std::string resultName;
  std::optional<std::string> deprecated; ///< what to use instead
  Place place;
};

struct Definition {
  enum class Kind { Enumeration, Structure, Delegate, Interface, Class };
  struct Field {
    TypeName type;
    std::string name;
  };
  struct Constant {
    std::string name;
    int64_t value;
  };
  struct ClassSide {
    syntax::Form form; ///< `Statics` or `Factory`
    std::string interface;
  };

  Kind kind = Kind::Class;
  std::string nameSpace;
  std::string name; ///< without the mark of its arity
  std::vector<std::string> typeParameters;
  std::optional<Guid> iid;
  std::optional<std::string> deprecated;
  Place place;

  bool isFlags = false;
  std::vector<Constant> constants;
  std::vector<Field> fields;
  std::vector<Method> methods;      ///< of an interface, in the order of its table; `Invoke`
  std::vector<TypeName> interfaces; ///< of a class, the default one first
  std::vector<ClassSide> classSide;
  std::vector<std::string> composable; ///< factories that only make subclasses
  bool isActivatable = false;

  std::string fullName() const { return nameSpace.empty() ? name : nameSpace + "." + name; }
};

} // namespace bridgegen::metadata

#endif
