#ifndef WRT_GENERATOR_METHOD_H
#define WRT_GENERATOR_METHOD_H

#include "generator/project/ObjcType.h"
#include "generator/project/Selector.h"

namespace bridgegen {

/// A method of a bridge as Objective-C sees it.
struct Method {
  struct Argument {
    std::string label; ///< its part of the selector, without the colon
    std::string name;  ///< of the variable
    ObjcType type;
  };

  bool isClassMethod = false;
  std::string selector;
  ObjcType result;
  std::vector<Argument> arguments; ///< without the final `error:` that `hasError` stands for
  bool hasError = true;

  /// The selector up to its first colon: all of it for a method without arguments but `error:`.
  std::string firstWord() const { return selector.substr(0, selector.find(':')); }
  /// `v16@0:4@8^@12`, as in a class's method list.
  std::string encoding() const;
  /// `v16@0:4@"NSString"8^@12`, as in a protocol's extended types.
  std::string extendedEncoding() const;
};

/// The method of a bridged member of the interface.
Method methodOf(const InterfaceType &interface, const Member &member);
/// The method that gives the interface of a bridge, or a factory of a class.
Method accessorOf(const InterfaceType &interface);
/// `+activateInstance`.
Method activation();

} // namespace bridgegen

#endif
