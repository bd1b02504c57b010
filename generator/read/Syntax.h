#ifndef WRT_GENERATOR_SYNTAX_H
#define WRT_GENERATOR_SYNTAX_H

#include "generator/read/Guid.h"
#include "generator/read/Source.h"

#include <memory>
#include <optional>
#include <variant>
#include <vector>

/// What stands in a declarations file, word for word: names are not looked up yet.
namespace bridgegen::syntax {

/// A use of a type: a simple or dotted name, and the arguments of a generic one.
struct TypeName {
  Name name;
  std::vector<TypeName> arguments;
};

struct Attribute {
  Name name;
  std::optional<Name> value;
};

struct Constant {
  Name name;
  int64_t value = 0;
};

struct Enumeration {
  bool isExtern = false;
  bool isFlags = false;
  Name name;
  std::optional<Name> bridgeName;
  std::vector<Constant> constants;
};

struct Field {
  TypeName type;
  Name name;
};

struct Structure {
  Name name;
  std::optional<Name> bridgeName;
  std::vector<Field> fields;
};

/// An identifier (IID) and where it stands.
struct Identifier {
  Guid guid;
  Position at;
};

struct Delegate {
  std::optional<TypeName> result;
  Name name;
  std::vector<Name> typeParameters;
  std::optional<Name> bridgeName;
  Identifier iid;
  std::vector<Field> arguments;
};

/// The count of an array: its name, and its type when that is not `UInt32`.
struct Count {
  std::optional<TypeName> type;
  Name name;
};

/// How a count of elements that were filled in comes back.
enum class Filled { Nowhere, Out, Return };

struct Array {
  std::optional<Count> count;
  Filled filled = Filled::Nowhere;
  std::optional<Count> filledCount;
};

struct Parameter {
  bool isReturn = false;
  bool isOut = false;
  bool isFill = false;
  TypeName type;
  std::optional<Array> array;
  Name name;
};

struct Accessor {
  bool isSetter = false;
  Position at;
  std::optional<Name> parameter;
};

struct Property {
  TypeName type;
  Name name;
  std::vector<Accessor> accessors;
};

struct Method {
  std::vector<Attribute> attributes;
  std::optional<TypeName> result;
  Name name;
  std::vector<Parameter> parameters;
};

struct Event {
  TypeName type;
  Name name;
  std::optional<Name> parameter;
};

struct Reserved {
  Position at;
};

using Member = std::variant<Property, Method, Event, Reserved>;

/// How much of a type is bridged; see docs/declarations.md.
enum class Form { Full, Proxy, Extern, Statics, Factory };

struct Interface {
  Form form = Form::Full;
  Name name;
  std::optional<Name> bridgeName;
  Identifier iid;
  std::vector<Member> members;
};

/// A parameterised interface.
struct Family {
  Name name;
  std::vector<Name> typeParameters;
  Identifier iid;
  std::vector<TypeName> required; ///< the interfaces that its objects have besides
  std::vector<Member> members;
};

/// Instances of families that are bridged or, if `extern`, known.
struct Instantiation {
  Form form = Form::Full;
  std::vector<TypeName> types;
};

struct ClassSide {
  Form form = Form::Statics;
  std::vector<TypeName> interfaces;
};

struct Class {
  Form form = Form::Full;
  Name name;
  std::optional<Name> bridgeName;
  std::vector<TypeName> interfaces;
  std::vector<ClassSide> classSide;
};

using Declared =
    std::variant<Enumeration, Structure, Delegate, Interface, Family, Instantiation, Class>;

/// What a `namespace` line opens, or the beginning of a file.
struct Section {
  std::string nameSpace; ///< empty for the global one
  std::vector<Name> usings;
};

struct Declaration {
  std::shared_ptr<const Section> section;
  std::vector<Attribute> attributes;
  Declared declared;
};

/// One file.
struct Unit {
  const Source *source = nullptr;
  std::vector<Declaration> declarations;
};

} // namespace bridgegen::syntax

#endif
