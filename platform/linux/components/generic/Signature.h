/// The identifiers of parameterised interfaces: what WinRT computes from a type's signature.
#ifndef WRT_COMPONENTS_SIGNATURE_H
#define WRT_COMPONENTS_SIGNATURE_H

#include "platform/linux/components/generic/FixedText.h"
#include "platform/linux/components/generic/Sha1.h"

#include <WRTAbi.h>

namespace wrt::implement {

/// An identifier as signatures spell it: braces, lower-case digits.
constexpr FixedText<38> spelled(const GUID &iid) {
  FixedText<38> result;
  size_t length = 0;
  const auto add = [&](uint64_t value, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
      result.text[length++] = "0123456789abcdef"[value >> shift & 15];
  };
  result.text[length++] = '{';
  add(iid.Data1, 8);
  result.text[length++] = '-';
  add(iid.Data2, 4);
  result.text[length++] = '-';
  add(iid.Data3, 4);
  result.text[length++] = '-';
  for (int i = 0; i < 8; ++i) {
    if (i == 2)
      result.text[length++] = '-';
    add(iid.Data4[i], 2);
  }
  result.text[length++] = '}';
  return result;
}

/// The identifier of the parameterised interface instance with this signature: a version 5 UUID in
/// the namespace 11F47AD5-7B73-42C0-ABAE-878B1E16ADEE.
constexpr GUID identifierOf(std::string_view signature) {
  constexpr uint8_t kNamespace[] = {0x11, 0xF4, 0x7A, 0xD5, 0x7B, 0x73, 0x42, 0xC0,
                                    0xAB, 0xAE, 0x87, 0x8B, 0x1E, 0x16, 0xAD, 0xEE};
  Sha1 hash;
  for (uint8_t byte : kNamespace)
    hash.add(byte);
  for (char byte : signature)
    hash.add(static_cast<uint8_t>(byte));
  const auto d = hash.finish();
  GUID iid{};
  iid.Data1 = uint32_t{d[0]} << 24 | uint32_t{d[1]} << 16 | uint32_t{d[2]} << 8 | d[3];
  iid.Data2 = static_cast<uint16_t>(d[4] << 8 | d[5]);
  iid.Data3 = static_cast<uint16_t>((d[6] << 8 | d[7]) & 0x0FFF) | 0x5000;
  for (size_t i = 0; i < 8; ++i)
    iid.Data4[i] = d[8 + i];
  iid.Data4[0] = (iid.Data4[0] & 0x3F) | 0x80;
  return iid;
}

/// The signature of an interface: of an instance of a parameterised one its own `kSignature`, of
/// any other its identifier.
template <class Interface>
constexpr auto signatureOf() {
  if constexpr (requires { Interface::kSignature; })
    return Interface::kSignature;
  else
    return spelled(Interface::kIid);
}

template <>
constexpr auto signatureOf<abi::IInspectable>() {
  return FixedText("cinterface(IInspectable)");
}

/// The signature of the instance of the parameterised interface or delegate `generic` for the types
/// `Arguments` (see Types.h).
template <class... Arguments>
constexpr auto instanceSignature(const GUID &generic) {
  return FixedText("pinterface(") + spelled(generic) +
         (... + (FixedText(";") + Arguments::kSignature)) + FixedText(")");
}

} // namespace wrt::implement

#endif
