/// What the test component in a DLL and the test program that loads it tell each other: what the
/// component is to answer, and what reached it. C alone crosses, since the two sides have different
/// C++ libraries.
#ifndef WRT_TESTS_WINE_PROGRAM_H
#define WRT_TESTS_WINE_PROGRAM_H

#include <WRTObjcBridge/WRTTypes.h>
#include <WRTObjcBridge/types/test.h>

WRT_EXTERN_C_BEGIN

/// `wrt::test::Script` in C. `string` is borrowed from the program's script.
typedef struct WRTComponentScript {
  HRESULT status;
  bool poisons;
  bool nullObjects;
  int32_t integer;
  WRTTestStruct structure;
  const char16_t *string;
  uint32_t stringLength;
  int32_t count;
  int32_t invocations;
  bool keepsDelegate;
} WRTComponentScript;

/// The program's functions, which the component calls on any thread.
typedef struct WRTComponentProgram {
  void(WRT_ABI *readScript)(WRTComponentScript *script);
  void(WRT_ABI *recordCrossing)(const char *text, size_t length);
  /// As `WRTLedgerAdd`.
  void(WRT_ABI *addToLedger)(int32_t kind, int64_t amount);
  void(WRT_ABI *countHandleMade)(HSTRING string);
  void(WRT_ABI *countHandleReleased)(HSTRING string);
} WRTComponentProgram;

/// `WRTComponentConnect`, an export of the DLL: makes the calling program the component's.
/// `program` is borrowed for good.
typedef void(WRT_ABI *WRTComponentConnectFunction)(const WRTComponentProgram *program);
/// `WRTComponentKeptDelegate`, likewise: the delegate that the component kept last (+1), or null.
typedef void *(WRT_ABI *WRTComponentKeptDelegateFunction)(void);
/// `WRTComponentDropKeptDelegate`, likewise: makes the component give that delegate up.
typedef void(WRT_ABI *WRTComponentDropKeptDelegateFunction)(void);

WRT_EXTERN_C_END

#endif
