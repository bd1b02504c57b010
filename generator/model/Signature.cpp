#include "generator/model/Signature.h"

#include "generator/model/Sha1.h"

#include <algorithm>

namespace bridgegen {

namespace {

std::string braced(const Guid &guid) { return "{" + guid.lower() + "}"; }

/// Appends the signature as the Windows Runtime forms it: `string`, `rc(Name;{iid})`,
/// `pinterface({piid};args)`.
void append(std::string &text, const Type &type);

void append(std::string &text, const Instance &instance) {
  text += "pinterface(" + braced(instance.piid);
  for (const Type *argument : instance.arguments) {
    text += ';';
    append(text, *argument);
  }
  text += ')';
}

void append(std::string &text, const std::optional<Instance> &instance, const std::string &plain) {
  if (instance)
    append(text, *instance);
  else
    text += plain;
}

void append(std::string &text, const Type &type) {
  switch (type.kind) {
  case Kind::Enum:
    text += "enum(" + type.name + (asEnum(type).isFlags ? ";u4)" : ";i4)");
    return;
  case Kind::Struct:
    text += "struct(" + type.name;
    for (const StructType::Field &field : asStruct(type).fields) {
      text += ';';
      append(text, *field.type);
    }
    text += ')';
    return;
  case Kind::Class:
    text += "rc(" + type.name + ";";
    append(text, *asClass(type).defaultInterface());
    text += ')';
    return;
  case Kind::Interface:
    append(text, asInterface(type).instance, braced(asInterface(type).iid));
    return;
  case Kind::Delegate:
    append(text, asDelegate(type).instance, "delegate(" + braced(asDelegate(type).iid) + ")");
    return;
  case Kind::Scalar:
    text += type.scalar->signature;
    return;
  case Kind::String:
    text += "string";
    return;
  case Kind::Object:
    text += "cinterface(IInspectable)";
    return;
  }
}

/// 11F47AD5-7B73-42C0-ABAE-878B1E16ADEE, the namespace of parameterised types.
constexpr unsigned char kNamespace[] = {0x11, 0xF4, 0x7A, 0xD5, 0x7B, 0x73, 0x42, 0xC0,
                                        0xAB, 0xAE, 0x87, 0x8B, 0x1E, 0x16, 0xAD, 0xEE};

} // namespace

bool Signatures::has(const Type &type) {
  const auto [known, isNew] = known_.emplace(&type, false);
  if (!isNew)
    return known->second;
  const bool isComplete = lookInto(type);
  known_[&type] = isComplete;
  return isComplete;
}

bool Signatures::allHave(const Instance &instance) {
  return std::ranges::all_of(instance.arguments,
                             [this](const Type *argument) { return has(*argument); });
}

bool Signatures::lookInto(const Type &type) {
  switch (type.kind) {
  case Kind::Struct:
    return std::ranges::all_of(asStruct(type).fields,
                               [this](const StructType::Field &field) { return has(*field.type); });
  case Kind::Class: {
    const InterfaceType *interface = asClass(type).defaultInterface();
    return interface && has(*interface);
  }
  case Kind::Interface:
    return !type.isInstance || allHave(*asInterface(type).instance);
  case Kind::Delegate:
    return !type.isInstance || allHave(*asDelegate(type).instance);
  case Kind::Scalar:
  case Kind::String:
  case Kind::Object:
  case Kind::Enum:
    break;
  }
  return true;
}

Guid Signatures::identifier(const Instance &instance) {
  Guid guid;
  if (!allHave(instance))
    return guid;
  std::string name(reinterpret_cast<const char *>(kNamespace), sizeof kNamespace);
  append(name, instance);
  const auto digest = sha1(name);
  std::copy_n(digest.begin(), guid.bytes.size(), guid.bytes.begin());
  guid.bytes[6] = static_cast<uint8_t>((guid.bytes[6] & 0x0F) | 0x50); // version 5
  guid.bytes[8] = static_cast<uint8_t>((guid.bytes[8] & 0x3F) | 0x80); // variant of RFC 4122
  return guid;
}

} // namespace bridgegen
