// The DLL's exports: what combase asks a component's DLL for, and the test program's way in.

#include "tests/component/TestObject.h"
#include "tests/wine/component/Program.h"

#include "platform/linux/string/HString.h"

namespace {

const wrt::test::ComponentProgram *connected = nullptr;

} // namespace

const wrt::test::ComponentProgram &wrt::test::program() { return *connected; }

extern "C" {

/// The factory (+1) of one of the DLL's classes.
__declspec(dllexport) HRESULT DllGetActivationFactory(HSTRING className,
                                                      wrt::abi::IActivationFactory **factory) {
  auto found = wrt::activation::findFactory(wrt::viewOf(className));
  *factory = found.detach();
  return *factory ? wrt::status::kOk : wrt::status::kClassNotRegistered;
}

/// Objects may still live: never.
__declspec(dllexport) HRESULT DllCanUnloadNow() { return wrt::status::kFalse; }

__declspec(dllexport) void WRTComponentConnect(const wrt::test::ComponentProgram *program) {
  connected = program;
}

__declspec(dllexport) void *WRTComponentKeptDelegate() {
  return wrt::test::keptDelegate().detach();
}

__declspec(dllexport) void WRTComponentDropKeptDelegate() { wrt::test::dropKeptDelegate(); }

} // extern "C"
