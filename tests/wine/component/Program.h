/// What the test component in a DLL and the test program that loads it tell each other: what the
/// component is to answer, and what reached it. Plain values alone cross, since the two sides have
/// different C++ libraries.
#ifndef WRT_TESTS_WINE_PROGRAM_H
#define WRT_TESTS_WINE_PROGRAM_H

#include "tests/component/Script.h"

namespace wrt::test {

/// The program's functions, which the component calls on any thread.
struct ComponentProgram {
  /// Copies the script and tells its string, which is borrowed.
  void(WRT_ABI *readScript)(PlainScript *script, const char16_t **string, uint32_t *length);
  void(WRT_ABI *recordCrossing)(const char *text, size_t length);
  /// As `WRTLedgerAdd`.
  void(WRT_ABI *addToLedger)(int32_t kind, int64_t amount);
  void(WRT_ABI *countHandleMade)(HSTRING string);
  void(WRT_ABI *countHandleReleased)(HSTRING string);
};

/// `WRTComponentConnect`, an export of the DLL: makes the calling program the component's.
/// `program` is borrowed for good.
using ConnectFunction = void(WRT_ABI *)(const ComponentProgram *program);
/// `WRTComponentKeptDelegate`, likewise: the delegate that the component kept last (+1), or null.
using KeptDelegateFunction = void *(WRT_ABI *)();
/// `WRTComponentDropKeptDelegate`, likewise: makes the component give that delegate up.
using DropKeptDelegateFunction = void(WRT_ABI *)();

/// In the DLL: the program that has loaded it and connected itself.
const ComponentProgram &program();

} // namespace wrt::test

#endif
