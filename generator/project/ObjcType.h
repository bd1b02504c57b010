#ifndef WRT_GENERATOR_OBJC_TYPE_H
#define WRT_GENERATOR_OBJC_TYPE_H

#include "generator/model/Type.h"

namespace bridgegen {

/// A type on the Objective-C side. Encodings and sizes are those of the product, a 32-bit ARM
/// target with Apple's Objective-C ABI.
struct ObjcType {
  enum class Nullability {
    None,    ///< not a pointer
    Nonnull, ///< what `assume_nonnull` says of a pointer
    Nullable
  };

  std::string spelling; ///< `NSString *`, `id<WRTIBufferBridge>`, `int`; without nullability
  std::string encoding; ///< as in a class's method list
  std::string extended; ///< as in a protocol's extended method types
  /// As it stands behind two pointers, where structures have lost their fields.
  std::string distant;
  unsigned size = 4;
  unsigned alignment = 4;
  Nullability nullability = Nullability::None;
  bool isPointer = false; ///< a C pointer, not an object

  /// In a method's parentheses: `nullable NSString *`.
  std::string inMethod() const;
  /// Anywhere else: `NSString *_Nullable`.
  std::string elsewhere() const;
};

ObjcType objcVoid();
/// How a value of the type is passed and returned.
ObjcType objcType(const Type &type);
/// A pointer through which something of the type is handed out.
ObjcType pointerTo(const ObjcType &type);
/// `NSArray<NSString *> *`, or an `NSMutableArray` of the like.
ObjcType objcArray(const std::string &className, const Type &element);
/// What an accessor of the interface returns: typed if the table is known, else opaque.
ObjcType interfacePointer(const InterfaceType &interface);
ObjcType voidPointer();

/// What stands in the parentheses of a delegate's block type: `id<WRTIFooBridge> _Nullable sender,
/// int x`.
std::string blockParameters(const DelegateType &delegate);

/// The type of C that crosses: one per machine type, enumerations being `int`.
std::string valueSpelling(const Type &type);

} // namespace bridgegen

#endif
