/// What the back end over a real WinRT needs from Windows, as a table that the host program fills.
/// Only the host is a program of Wine's; this library and everything above it are ordinary ELF
/// code.
#ifndef WRT_WINDOWS_FUNCTIONS_H
#define WRT_WINDOWS_FUNCTIONS_H

#include <WRTBridge.h>

namespace wrt::wine {

/// Functions of Windows under their own names (Windows 10 SDK 10.0.16299.0: roapi.h, winstring.h,
/// combaseapi.h, processthreadsapi.h, synchapi.h, libloaderapi.h).
struct WindowsFunctions {
  HRESULT(WRT_ABI *RoActivateInstance)(HSTRING className, void **instance);
  HRESULT(WRT_ABI *RoGetActivationFactory)(HSTRING className, const GUID *iid, void **factory);

  HRESULT(WRT_ABI *WindowsCreateString)(const char16_t *text, uint32_t length, HSTRING *string);
  HRESULT(WRT_ABI *WindowsCreateStringReference)(const char16_t *text, uint32_t length,
                                                 WRTHSTRINGHeader *header, HSTRING *string);
  HRESULT(WRT_ABI *WindowsPreallocateStringBuffer)(uint32_t length, char16_t **text, void **buffer);
  HRESULT(WRT_ABI *WindowsPromoteStringBuffer)(void *buffer, HSTRING *string);
  HRESULT(WRT_ABI *WindowsDuplicateString)(HSTRING string, HSTRING *copy);
  HRESULT(WRT_ABI *WindowsDeleteString)(HSTRING string);
  const char16_t *(WRT_ABI *WindowsGetStringRawBuffer)(HSTRING string, uint32_t *length);

  void *(WRT_ABI *CoTaskMemAlloc)(size_t size);
  void(WRT_ABI *CoTaskMemFree)(void *block);

  void *(WRT_ABI *CreateThread)(void *security, size_t stackSize,
                                uint32_t(WRT_ABI *start)(void *argument), void *argument,
                                uint32_t flags, uint32_t *id);
  uint32_t(WRT_ABI *WaitForSingleObject)(void *handle, uint32_t milliseconds);
  int32_t(WRT_ABI *CloseHandle)(void *handle);

  void *(WRT_ABI *LoadLibraryW)(const char16_t *path);
  void *(WRT_ABI *GetProcAddress)(void *library, const char *name);
};

/// The functions. The host sets the table before it loads any code that calls the platform.
WRT_DLLEXPORT const WindowsFunctions &windows();

/// Borrowed; must live as long as the process.
WRT_DLLEXPORT void setWindows(const WindowsFunctions *functions);

} // namespace wrt::wine

#endif
