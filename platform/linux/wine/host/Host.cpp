// The host: a Windows program as far as Wine is concerned, which lends combase to code that was
// built for Linux. Its first argument is a shared library with a `main`, which it runs with the
// rest of the arguments; the library has to name libWRTBridge_wine before every other library it
// needs.
#include <windows.h>

#include <roapi.h>
#include <winstring.h>

#include "platform/linux/wine/WindowsFunctions.h"

#include <cstdio>
#include <dlfcn.h>

namespace {

/// The same function with this project's types, which are as large: a reference is a pointer, a
/// `WCHAR` a `char16_t`.
template <class To, class From>
void set(To *&place, From *function) {
  place = reinterpret_cast<To *>(reinterpret_cast<void *>(function));
}

wrt::wine::WindowsFunctions windowsFunctions() {
  wrt::wine::WindowsFunctions table{};
  set(table.RoActivateInstance, RoActivateInstance);
  set(table.RoGetActivationFactory, RoGetActivationFactory);
  set(table.WindowsCreateString, WindowsCreateString);
  set(table.WindowsCreateStringReference, WindowsCreateStringReference);
  set(table.WindowsPreallocateStringBuffer, WindowsPreallocateStringBuffer);
  set(table.WindowsPromoteStringBuffer, WindowsPromoteStringBuffer);
  set(table.WindowsDuplicateString, WindowsDuplicateString);
  set(table.WindowsDeleteString, WindowsDeleteString);
  set(table.WindowsGetStringRawBuffer, WindowsGetStringRawBuffer);
  set(table.CoTaskMemAlloc, CoTaskMemAlloc);
  set(table.CoTaskMemFree, CoTaskMemFree);
  set(table.CreateThread, CreateThread);
  set(table.WaitForSingleObject, WaitForSingleObject);
  set(table.CloseHandle, CloseHandle);
  set(table.LoadLibraryW, LoadLibraryW);
  set(table.GetProcAddress, GetProcAddress);
  return table;
}

} // namespace

int main(int argc, char **argv) {
  setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  if (argc < 2) {
    std::fprintf(stderr, "Usage: host LIBRARY [ARGUMENT...]\n");
    return 2;
  }
  const HRESULT status = RoInitialize(RO_INIT_MULTITHREADED);
  if (FAILED(status)) {
    std::fprintf(stderr, "host: RoInitialize failed with 0x%08x\n", static_cast<unsigned>(status));
    return 2;
  }
  static const wrt::wine::WindowsFunctions table = windowsFunctions();
  wrt::wine::setWindows(&table);
  void *library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    std::fprintf(stderr, "host: %s\n", dlerror());
    return 2;
  }
  using Main = int(int, char **);
  auto *run = reinterpret_cast<Main *>(dlsym(library, "main"));
  if (run == nullptr) {
    std::fprintf(stderr, "host: %s has no main\n", argv[1]);
    return 2;
  }
  const int result = run(argc - 1, argv + 1);
  std::fflush(stdout);
  return result;
}
