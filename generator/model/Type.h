#ifndef WRT_GENERATOR_TYPE_H
#define WRT_GENERATOR_TYPE_H

#include "generator/forms/Scalar.h"
#include "generator/model/Member.h"
#include "generator/read/Syntax.h"

namespace bridgegen {

using syntax::Form;
struct Unit;

enum class Kind { Scalar, String, Object, Enum, Struct, Delegate, Interface, Class };

/// A type of the model: built in, declared, or an instance of a generic one. There is one object
/// per type, so types are compared by address.
struct Type {
  Kind kind;
  std::string name;        ///< WinRT's, in full: `Windows.Foundation.IReference<Int32>`
  std::string bridgeName;  ///< what Objective-C names have between `WRT` and `Bridge`
  bool isInstance = false; ///< of a generic interface or delegate
  bool isOpen = false;     ///< a type parameter, which is of the kind `Object`, or made of one
  bool isKnown = false;    ///< an instance that the product has without the add-on
  const Unit *unit =
      nullptr; ///< where it is declared (its family, if an instance); null if built in
  Position at;
  const Scalar *scalar = nullptr; ///< what is to be known of a scalar

  Type(Kind kind, std::string name, std::string bridgeName)
      : kind(kind), name(std::move(name)), bridgeName(std::move(bridgeName)) {}
  Type(const Type &) = delete;
  Type &operator=(const Type &) = delete;
  virtual ~Type() = default;

  bool isTypeParameter() const { return isOpen && !isInstance; }
  bool isString() const { return kind == Kind::String; }
  bool isBoolean() const { return scalar == &kBoolean; }
  bool isDelegate() const { return kind == Kind::Delegate; }
  bool isRuntimeClass() const { return kind == Kind::Class; }
  /// Crosses as an interface pointer there and as a bridge here.
  bool isReferenceType() const {
    return kind == Kind::Object || kind == Kind::Interface || kind == Kind::Class;
  }
  /// Crosses as it is, in both directions: numbers, booleans, enumerations, structures, GUIDs,
  /// tokens.
  bool isValue() const { return !isString() && !isDelegate() && !isReferenceType(); }

  /// The last part of `name`, without type arguments.
  std::string simpleName() const;
  /// `WRTDateTime`, `WRTIBuffer`, `WRTIVector__1_WRTHSTRING`: its C structure, enumeration or
  /// table.
  std::string cName() const;
  /// `DateTime`: what stands for it in C++.
  std::string scopeName() const;
  /// The Objective-C class of the bridge, for an interface also the protocol.
  std::string bridgeClass() const;
  /// The method that gives the interface of a bridge.
  std::string accessorSelector() const;
};

struct EnumType : Type {
  struct Constant {
    std::string name;
    int64_t value;
  };
  bool isExtern = false; ///< stands in no header of applications
  bool isFlags = false;
  std::vector<Constant> constants;

  EnumType(std::string name, std::string bridgeName)
      : Type(Kind::Enum, std::move(name), std::move(bridgeName)) {}

  /// Whether a constant has a bit that no constant has for itself.
  bool hasUnnamedFlags() const;
};

struct StructType : Type {
  struct Field {
    const Type *type;
    std::string name;
  };
  std::vector<Field> fields;

  StructType(std::string name, std::string bridgeName)
      : Type(Kind::Struct, std::move(name), std::move(bridgeName)) {}
};

/// What an instance of a generic interface or delegate is made of.
struct Instance {
  std::string familyName;
  Guid piid; ///< the family's identifier
  std::vector<const Type *> arguments;
};

struct DelegateType : Type {
  struct Argument {
    const Type *type;
    std::string name;
    Position at;
  };
  Guid iid;
  const Type *result = nullptr; ///< null when nothing is returned
  std::vector<Argument> arguments;
  std::optional<Instance> instance;

  DelegateType(std::string name, std::string bridgeName)
      : Type(Kind::Delegate, std::move(name), std::move(bridgeName)) {}

  bool returnsString() const { return result && result->isString(); }
  bool returnsObject() const { return result && result->isReferenceType(); }
  /// The platform's function that makes one.
  std::string factory() const { return cName() + "FromBlock"; }
};

struct InterfaceType : Type {
  Form form = Form::Extern;
  Guid iid;
  std::vector<Member> members; ///< in the table's order, from slot 6
  std::optional<Instance> instance;
  /// The proxy of the product that this completes: the members go to that one's classes. Null for
  /// all others.
  const InterfaceType *completes = nullptr;
  /// The product's classes that list it.
  std::vector<const struct ClassType *> completedClasses;

  InterfaceType(std::string name, std::string bridgeName)
      : Type(Kind::Interface, std::move(name), std::move(bridgeName)) {}

  bool isFull() const { return form == Form::Full; }
  bool isProxyOnly() const { return form == Form::Proxy; }
  /// Its members are class methods of a runtime class.
  bool isClassSide() const { return form == Form::Statics || form == Form::Factory; }
  /// Has an Objective-C class of its own.
  bool isBridged() const { return isFull() || isProxyOnly(); }
  /// Has an Objective-C protocol of its own.
  bool hasProtocol() const { return form != Form::Extern; }
  /// Its table is known, so that accessors are typed and members are bridged.
  bool hasMembers() const { return isFull() || isClassSide(); }
};

struct ClassType : Type {
  /// An interface in one of the class's lists.
  struct Listed {
    const InterfaceType *interface;
    Form form; ///< `Statics` or `Factory` in these lists
    Position at;

    const InterfaceType *operator->() const { return interface; }
    const InterfaceType &operator*() const { return *interface; }
  };

  Form form = Form::Extern;
  bool isActivatable = false; ///< WinRT makes one without arguments
  std::vector<Listed> interfaces;
  std::vector<Listed> classSide; ///< statics and factories in the order of adoption

  ClassType(std::string name, std::string bridgeName)
      : Type(Kind::Class, std::move(name), std::move(bridgeName)) {}

  bool isFull() const { return form == Form::Full; }
  bool isProxy() const { return form == Form::Proxy; }
  bool isBridged() const { return isFull() || isProxy(); }
  /// The interface that stands for the class wherever a pointer to an object of it crosses; null
  /// for a class that has statics only.
  const InterfaceType *defaultInterface() const {
    return interfaces.empty() ? nullptr : interfaces[0].interface;
  }
  /// The platform's constant with the activation name.
  std::string nameConstant() const { return cName() + "ClassString"; }
};

/// `type` as what its kind says it is.
const EnumType &asEnum(const Type &type);
const StructType &asStruct(const Type &type);
const DelegateType &asDelegate(const Type &type);
const InterfaceType &asInterface(const Type &type);
/// Of what family and for what arguments an instance is; for nothing else.
const Instance &asInstance(const Type &type);
const ClassType &asClass(const Type &type);

/// The interface of which a pointer crosses for a value of the reference type: itself, the default
/// interface of a class, or null for `Object`, whose interface is `IInspectable`.
const InterfaceType *crossingInterface(const Type &type);

} // namespace bridgegen

#endif
