#include "generator/model/Signature.h"

#include "generator/model/Sha1.h"

#include <algorithm>
#include <cassert>

namespace bridgegen {

namespace {

std::string braced(const Guid &guid) { return "{" + guid.lower() + "}"; }

/// Forms one signature. Keeps the types it is inside of, to notice one that contains itself.
class SignatureBuilder {
public:
  /// Appends the signature; false if there is none.
  bool add(const Type &type) {
    if (std::find(inside_.begin(), inside_.end(), &type) != inside_.end())
      return false;
    inside_.push_back(&type);
    const bool isComplete = addInside(type);
    inside_.pop_back();
    return isComplete;
  }

  bool add(const Instance &instance) {
    text += "pinterface(" + braced(instance.piid);
    for (const Type *argument : instance.arguments) {
      text += ';';
      if (!add(*argument))
        return false;
    }
    text += ')';
    return true;
  }

  std::string text;

private:
  bool addInside(const Type &type) {
    switch (type.kind) {
    case Kind::Enum:
      text += "enum(" + type.name + (asEnum(type).isFlags ? ";u4)" : ";i4)");
      return true;
    case Kind::Struct:
      return addStruct(asStruct(type));
    case Kind::Class:
      return addClass(asClass(type));
    case Kind::Interface:
      return addInterface(asInterface(type).instance, braced(asInterface(type).iid));
    case Kind::Delegate:
      return addInterface(asDelegate(type).instance,
                          "delegate(" + braced(asDelegate(type).iid) + ")");
    default:
      text += builtIn(type.kind);
      return true;
    }
  }

  bool addInterface(const std::optional<Instance> &instance, const std::string &plain) {
    if (instance)
      return add(*instance);
    text += plain;
    return true;
  }

  bool addStruct(const StructType &type) {
    text += "struct(" + type.name;
    for (const StructType::Field &field : type.fields) {
      text += ';';
      if (!add(*field.type))
        return false;
    }
    text += ')';
    return true;
  }

  bool addClass(const ClassType &type) {
    if (!type.defaultInterface())
      return false;
    text += "rc(" + type.name + ";";
    if (!add(*type.defaultInterface()))
      return false;
    text += ')';
    return true;
  }

  static const char *builtIn(Kind kind) {
    switch (kind) {
    case Kind::Boolean:
      return "b1";
    case Kind::UInt8:
      return "u1";
    case Kind::Int16:
      return "i2";
    case Kind::UInt16:
      return "u2";
    case Kind::Int32:
      return "i4";
    case Kind::UInt32:
      return "u4";
    case Kind::Int64:
      return "i8";
    case Kind::UInt64:
      return "u8";
    case Kind::Char16:
      return "c2";
    case Kind::Single:
      return "f4";
    case Kind::Double:
      return "f8";
    case Kind::Guid:
      return "g16";
    case Kind::HResult:
      return "struct(Windows.Foundation.HResult;i4)";
    case Kind::Token:
      return "struct(Windows.Foundation.EventRegistrationToken;i8)";
    case Kind::String:
      return "string";
    case Kind::Object:
      return "cinterface(IInspectable)";
    default:
      assert(false);
      return "";
    }
  }

  std::vector<const Type *> inside_;
};

/// 11F47AD5-7B73-42C0-ABAE-878B1E16ADEE, the namespace of parameterised types.
constexpr unsigned char kNamespace[] = {0x11, 0xF4, 0x7A, 0xD5, 0x7B, 0x73, 0x42, 0xC0,
                                        0xAB, 0xAE, 0x87, 0x8B, 0x1E, 0x16, 0xAD, 0xEE};

} // namespace

std::optional<std::string> typeSignature(const Type &type) {
  SignatureBuilder builder;
  return builder.add(type) ? std::optional(builder.text) : std::nullopt;
}

std::optional<std::string> instanceSignature(const Instance &instance) {
  SignatureBuilder builder;
  return builder.add(instance) ? std::optional(builder.text) : std::nullopt;
}

Guid instanceIdentifier(std::string_view signature) {
  std::string name(reinterpret_cast<const char *>(kNamespace), sizeof kNamespace);
  const auto digest = sha1(name.append(signature));
  Guid guid;
  std::copy_n(digest.begin(), guid.bytes.size(), guid.bytes.begin());
  guid.bytes[6] = static_cast<uint8_t>((guid.bytes[6] & 0x0F) | 0x50); // version 5
  guid.bytes[8] = static_cast<uint8_t>((guid.bytes[8] & 0x3F) | 0x80); // variant of RFC 4122
  return guid;
}

} // namespace bridgegen
