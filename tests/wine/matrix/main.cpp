// The cells of the member matrix that do not need the embedded platform, with the test component in
// a DLL of its own behind combase, to which this program is what `Program.h` says.
// Usage: MATRIX DLL

#include "platform/linux/ledger/WRTLedger.h"
#include "platform/linux/wine/StringLedger.h"
#include "platform/linux/wine/WindowsFunctions.h"
#include "tests/component/TestObject.h"
#include "tests/wine/component/Program.h"

#include <WRTBridge.h>
#include <WRTUnknown.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <dlfcn.h>
#include <string>

namespace wrt::test {

namespace {

void WRT_ABI readScript(PlainScript *result, const char16_t **string, uint32_t *length) {
  *result = script();
  *string = script().string.data();
  *length = static_cast<uint32_t>(script().string.size());
}

void WRT_ABI record(const char *text, size_t length) { recordCrossing({text, length}); }

void WRT_ABI addToLedger(int32_t kind, int64_t amount) {
  WRTLedgerAdd(static_cast<WRTLedgerKind>(kind), amount);
}

void WRT_ABI handleMade(HSTRING string) { wine::countHandleMade(string); }
void WRT_ABI handleReleased(HSTRING string) { wine::countHandleReleased(string); }

const ComponentProgram thisProgram = {readScript, record, addToLedger, handleMade, handleReleased};

KeptDelegateFunction kept = nullptr;
DropKeptDelegateFunction dropKept = nullptr;

template <class Function>
bool find(Function &function, void *library, const char *name) {
  function = reinterpret_cast<Function>(wine::windows().GetProcAddress(library, name));
  return function != nullptr;
}

/// Loads the test component's DLL and makes this program's script and record its own; from then on
/// `keptDelegate` is the DLL's. Whether that worked.
bool connectComponent(const std::string &file) {
  std::u16string path = u"Z:"; // Wine's drive that is the whole Unix file system; ASCII
  for (char character : file)
    path += character == '/' ? u'\\' : static_cast<char16_t>(character);
  void *library = wine::windows().LoadLibraryW(path.c_str());
  ConnectFunction connect;
  if (library == nullptr || !find(connect, library, "WRTComponentConnect") ||
      !find(kept, library, "WRTComponentKeptDelegate") ||
      !find(dropKept, library, "WRTComponentDropKeptDelegate"))
    return false;
  connect(&thisProgram);
  return true;
}

/// Whether the test class comes from code that Wine loaded, and not from this program's libraries.
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

} // namespace

// In front of those of the component in this process.
implement::ComPtr<abi::TestDelegate> keptDelegate() {
  return implement::ComPtr<abi::TestDelegate>::adopt(static_cast<abi::TestDelegate *>(kept()));
}
void dropKeptDelegate() { dropKept(); }

} // namespace wrt::test

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "Usage: matrix DLL\n");
    return 2;
  }
  if (!wrt::test::connectComponent(argv[1])) {
    std::fprintf(stderr, "matrix: cannot load %s\n", argv[1]);
    return 2;
  }
  if (!wrt::test::isComponentForeign()) {
    std::fprintf(stderr, "matrix: TestClass is not what %s implements\n", argv[1]);
    return 2;
  }
  return RUN_ALL_TESTS();
}
