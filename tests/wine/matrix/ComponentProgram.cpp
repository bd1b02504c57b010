#include "tests/wine/matrix/ComponentProgram.h"

#include "tests/component/TestObject.h"
#include "tests/wine/component/Program.h"

#include "platform/linux/ledger/WRTLedger.h"
#include "platform/linux/wine/StringLedger.h"
#include "platform/linux/wine/WindowsFunctions.h"

#include <WRTBridge.h>
#include <WRTUnknown.h>

#include <dlfcn.h>

namespace wrt::test {

namespace {

void WRT_ABI readScript(WRTComponentScript *result) {
  const Script &current = script();
  *result = {.status = current.status,
             .poisons = current.poisons,
             .nullObjects = current.nullObjects,
             .integer = current.integer,
             .structure = current.structure,
             .string = current.string.data(),
             .stringLength = static_cast<uint32_t>(current.string.size()),
             .count = current.count,
             .invocations = current.invocations,
             .keepsDelegate = current.keepsDelegate};
}

void WRT_ABI record(const char *text, size_t length) { recordCrossing({text, length}); }

void WRT_ABI addToLedger(int32_t kind, int64_t amount) {
  WRTLedgerAdd(static_cast<WRTLedgerKind>(kind), amount);
}

void WRT_ABI handleMade(HSTRING string) { wine::countHandleMade(string); }
void WRT_ABI handleReleased(HSTRING string) { wine::countHandleReleased(string); }

const WRTComponentProgram thisProgram = {readScript, record, addToLedger, handleMade,
                                         handleReleased};

WRTComponentKeptDelegateFunction kept = nullptr;
WRTComponentDropKeptDelegateFunction dropKept = nullptr;

template <class Function>
bool find(Function &function, void *library, const char *name) {
  function = reinterpret_cast<Function>(wine::windows().GetProcAddress(library, name));
  return function != nullptr;
}

} // namespace

bool connectComponent(const char16_t *path) {
  void *library = wine::windows().LoadLibraryW(path);
  WRTComponentConnectFunction connect;
  if (library == nullptr || !find(connect, library, "WRTComponentConnect") ||
      !find(kept, library, "WRTComponentKeptDelegate") ||
      !find(dropKept, library, "WRTComponentDropKeptDelegate"))
    return false;
  connect(&thisProgram);
  return true;
}

bool isComponentForeign() {
  auto *object = static_cast<WRTIUnknown *>(WRTActivateInstance(u"TestClass"));
  if (object == nullptr)
    return false;
  // The dynamic linker knows every function of this process but those that Wine has loaded.
  Dl_info info;
  const bool isKnown = dladdr(reinterpret_cast<void *>(object->lpVtbl->AddRef), &info) != 0;
  WRTIUnknownRelease(object);
  return !isKnown;
}

// In front of those of the component in this process.
implement::ComPtr<abi::TestDelegate> keptDelegate() {
  return implement::ComPtr<abi::TestDelegate>::adopt(static_cast<abi::TestDelegate *>(kept()));
}
void dropKeptDelegate() { dropKept(); }

} // namespace wrt::test
