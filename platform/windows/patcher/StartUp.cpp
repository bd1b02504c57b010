#include "ConstantStringPass.h"
#include "FixupPass.h"
#include "FixupTable.h"
#include "ImageInfo.h"
#include "ImageRegistration.h"
#include "WindowsServices.h"

extern "C" {

/// The image's first byte; the linker defines it.
extern const std::uint8_t __ImageBase[];

// The C runtime's walkers of the initializer tables (Windows 10 SDK 10.0.16299.0,
// corecrt_startup.h).
__declspec(dllimport) int _initterm_e(int (*const *first)(), int (*const *last)());
__declspec(dllimport) void _initterm(void (*const *first)(), void (*const *last)());
}

namespace wrt::startup {

namespace {

int applyFixups() {
  static bool done;
  if (done)
    return 0;
  done = true;
  WindowsServices services;
  fixupPass(fixupTable(), fixupTableSize(), fixupTableMarker(), services);
  return 0;
}

int giveStringsTheirClass() {
  WindowsServices services;
  constantStringPass(reinterpret_cast<WindowsServices::Address>(__ImageBase), services);
  return 0;
}

int doNothing() { return 0; }

void registerThisImage() {
  static bool done;
  if (done)
    return;
  done = true;
  WindowsServices services;
  registerImage(&imageInfo(), __ImageBase, services);
}

void unregisterThisImage() {
  WindowsServices services;
  unregisterImage(&imageInfo(), services);
}

using Initializer = int (*)();
using Constructor = void (*)();

// The tables run from the entry of the section that sorts first to that which sorts last. Within
// the first, the order of the passes is the order of the section names.
#define WRT_ENTRY(name) [[gnu::section(name), gnu::aligned(4), gnu::used]] const

WRT_ENTRY(".CRT$XIA") Initializer firstInitializer = nullptr;
WRT_ENTRY(".CRT$XIM1") Initializer fixupEntry = applyFixups;
WRT_ENTRY(".CRT$XIM2") Initializer constantStringEntry = giveStringsTheirClass;
WRT_ENTRY(".CRT$XIM3") Initializer emptyEntry = doNothing;
WRT_ENTRY(".CRT$XIZ") Initializer lastInitializer = nullptr;

WRT_ENTRY(".CRT$XCA") Constructor firstConstructor = nullptr;
WRT_ENTRY(".CRT$XCM") Constructor registrationEntry = registerThisImage;
WRT_ENTRY(".CRT$XCZ") Constructor lastConstructor = nullptr;

WRT_ENTRY(".CRT$XTA") Constructor firstTerminator = nullptr;
WRT_ENTRY(".CRT$XTM") Constructor unregistrationEntry = unregisterThisImage;
WRT_ENTRY(".CRT$XTZ") Constructor lastTerminator = nullptr;

} // namespace

} // namespace wrt::startup

/// The library's entry point. The loader calls it under its lock.
extern "C" int WRTDllEntry(void *, unsigned long reason, void *) {
  using namespace wrt::startup;
  // Windows 10 SDK 10.0.16299.0, winnt.h.
  constexpr unsigned long kProcessDetach = 0;
  constexpr unsigned long kProcessAttach = 1;
  if (reason == kProcessAttach) {
    if (_initterm_e(&firstInitializer, &lastInitializer) != 0)
      return 0;
    _initterm(&firstConstructor, &lastConstructor);
  } else if (reason == kProcessDetach) {
    _initterm(&firstTerminator, &lastTerminator);
  }
  return 1;
}
