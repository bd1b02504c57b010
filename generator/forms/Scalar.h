#ifndef WRT_GENERATOR_SCALAR_H
#define WRT_GENERATOR_SCALAR_H

#include <string_view>

/// The scalars of WinRT, one row each: everything that is to be known of one stands there.
namespace bridgegen {

struct Scalar {
  const char *name;       ///< in declarations
  const char *bridgeName; ///< as a type argument, in the names of instances
  const char *signature;  ///< in the identifiers of instances
  const char *spelling;   ///< in C and Objective-C
  const char *encoding;   ///< encoding, size and alignment are those of the product
  unsigned size;
  unsigned alignment;
  bool isTypeArgument; ///< the others' spelling in names of instances is not known
};

// clang-format off
inline constexpr Scalar kScalars[] = {
    {"Boolean", "bool",    "b1",  "bool",               "B",            1, 1, true},
    {"UInt8",   "UINT8",   "u1",  "unsigned char",      "C",            1, 1, false},
    {"Int16",   "INT16",   "i2",  "short",              "s",            2, 2, false},
    {"UInt16",  "UINT16",  "u2",  "unsigned short",     "S",            2, 2, false},
    {"Int32",   "INT32",   "i4",  "int",                "i",            4, 4, true},
    {"UInt32",  "UINT32",  "u4",  "unsigned int",       "I",            4, 4, true},
    {"Int64",   "INT64",   "i8",  "long long",          "q",            8, 8, false},
    {"UInt64",  "UINT64",  "u8",  "unsigned long long", "Q",            8, 8, false},
    {"Char16",  "CHAR16",  "c2",  "unsigned short",     "S",            2, 2, false},
    {"Single",  "FLOAT",   "f4",  "float",              "f",            4, 4, true},
    {"Double",  "DOUBLE",  "f8",  "double",             "d",            8, 8, true},
    // Typedefs of structures without a tag.
    {"Guid",    "GUID",    "g16", "GUID",               "{?=LSS[8C]}", 16, 4, true},
    {"EventRegistrationToken", "EventRegistrationToken",
     "struct(Windows.Foundation.EventRegistrationToken;i8)", "WRTEventRegistrationToken",
                                                        "{?=q}",        8, 8, false},
    // A number of its own name.
    {"HResult", "HRESULT", "struct(Windows.Foundation.HResult;i4)", "HRESULT", "l", 4, 4, false},
};
// clang-format on

/// Not defined: calling it stops a compilation, and the message shows the name.
void noSuchScalar();

/// The scalar of that name; another name does not compile.
consteval const Scalar &scalarNamed(std::string_view name) {
  for (const Scalar &scalar : kScalars) {
    if (scalar.name == name)
      return scalar;
  }
  noSuchScalar();
  return kScalars[0];
}

inline constexpr const Scalar &kBoolean = scalarNamed("Boolean");
inline constexpr const Scalar &kInt32 = scalarNamed("Int32");
inline constexpr const Scalar &kUInt32 = scalarNamed("UInt32");
inline constexpr const Scalar &kToken = scalarNamed("EventRegistrationToken");

} // namespace bridgegen

#endif
