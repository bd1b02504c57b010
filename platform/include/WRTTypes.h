/// The scalar and handle types of the Windows Runtime as Objective-C code sees them. C, C++,
/// Objective-C and Objective-C++.
#ifndef WRT_TYPES_H
#define WRT_TYPES_H

#include <stdbool.h>
#include <stdint.h>

#if defined(_WIN32)
#define WRT_DLLEXPORT __declspec(dllexport)
#define WRT_DLLIMPORT __declspec(dllimport)
#else
#define WRT_DLLEXPORT __attribute__((visibility("default")))
#define WRT_DLLIMPORT __attribute__((visibility("default")))
#endif

/// Marks a class or function that WRTObjcBridge exports. In the images of add-ons for Windows it
/// says nothing: their linker finds the place where the loader puts it.
#if defined(WRT_BUILDING_ADD_ON) && defined(_WIN32)
#define WRT_BRIDGE_API
#elif defined(WRT_BUILDING_BRIDGE)
#define WRT_BRIDGE_API WRT_DLLEXPORT
#else
#define WRT_BRIDGE_API WRT_DLLIMPORT
#endif

#if defined(__cplusplus)
#define WRT_EXTERN_C_BEGIN extern "C" {
#define WRT_EXTERN_C_END }
#define WRT_EXTERN_C extern "C"
#else
#define WRT_EXTERN_C_BEGIN
#define WRT_EXTERN_C_END
#define WRT_EXTERN_C extern
#endif

/// Heads an enumeration that is an `int`: `typedef WRT_ENUM(WRTFoo) { ... };`. C++ would refuse an
/// `int` where one is expected, and a block that takes the one for a block that takes the other;
/// there, as in C, the name is another one of `int` and the constants stand beside it.
/// `WRT_OPTIONS` does it for flags.
#if defined(__OBJC__) && !defined(__cplusplus)
#define WRT_ENUM(name)                                                                             \
  enum name : int name;                                                                            \
  enum name : int
#define WRT_OPTIONS(name)                                                                          \
  enum __attribute__((flag_enum)) name : int name;                                                 \
  enum __attribute__((flag_enum)) name : int
#else
#if defined(__cplusplus)
#define WRT_ENUM(name)                                                                             \
  int name;                                                                                        \
  enum : int
#else
#define WRT_ENUM(name)                                                                             \
  int name;                                                                                        \
  enum
#endif
#define WRT_OPTIONS(name) WRT_ENUM(name)
#endif

/// The calling convention of interface functions and of delegates' entry points: on x86-64 the
/// Windows convention whatever the host, so that one library binary serves every platform there.
#if defined(__x86_64__)
#define WRT_ABI __attribute__((ms_abi))
#else
#define WRT_ABI
#endif

#if !defined(_HRESULT_DEFINED) && !defined(_WINNT_)
#define _HRESULT_DEFINED
/// A status: signed, 32 bits, negative for failure. `long` where that has 32 bits, as in winnt.h.
#if __SIZEOF_LONG__ == 4
typedef long HRESULT;
#else
typedef int32_t HRESULT;
#endif
#endif

#if !defined(GUID_DEFINED)
#define GUID_DEFINED
/// 16 bytes that name an interface. Without a tag, so that it encodes as `{?=LSS[8C]}`.
typedef struct {
#if __SIZEOF_LONG__ == 4
  unsigned long Data1;
#else
  uint32_t Data1;
#endif
  unsigned short Data2;
  unsigned short Data3;
  unsigned char Data4[8];
} GUID;
#endif

/// A WinRT string: immutable UTF-16, reference-counted by its platform. Null is the empty string.
typedef struct HSTRING__ *HSTRING;

/// The two root interfaces: an interface pointer points to a pointer to its table of functions.
struct WRTIUnknownVtbl;
typedef struct WRTIUnknown {
  const struct WRTIUnknownVtbl *lpVtbl;
} WRTIUnknown;
struct WRTIInspectableVtbl;
typedef struct WRTIInspectable {
  const struct WRTIInspectableVtbl *lpVtbl;
} WRTIInspectable;

/// What an event's add member returns and its remove member takes; encodes as `{?=q}`.
typedef struct {
  long long value;
} WRTEventRegistrationToken;

#endif
