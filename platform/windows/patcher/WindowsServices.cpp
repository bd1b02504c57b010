#include "WindowsServices.h"

#include <stdlib.h>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

// windows.h is from before C++11's char16_t: its text is wchar_t, which has the same 16 bits here.
static_assert(sizeof(wchar_t) == sizeof(char16_t));

extern "C" __declspec(dllimport) void _wassert(const wchar_t *condition, const wchar_t *file,
                                               unsigned line);

namespace wrt::startup {

namespace {

const wchar_t *wide(const char16_t *text) { return reinterpret_cast<const wchar_t *>(text); }

} // namespace

bool WindowsServices::getModuleHandleEx(std::uint32_t flags, const void *nameOrAddress,
                                        void *&module) {
  HMODULE handle = nullptr;
  if (!GetModuleHandleExW(flags, static_cast<const wchar_t *>(nameOrAddress), &handle))
    return false;
  module = handle;
  return true;
}

void *WindowsServices::getModuleHandle(const char16_t *name) {
  return GetModuleHandleW(wide(name));
}

void *WindowsServices::getProcAddress(void *module, const char *name) {
  return reinterpret_cast<void *>(GetProcAddress(static_cast<HMODULE>(module), name));
}

void *WindowsServices::getCurrentProcess() { return GetCurrentProcess(); }

std::uint32_t WindowsServices::pageSize() {
  static std::uint32_t size;
  if (size == 0) {
    SYSTEM_INFO information{};
    GetNativeSystemInfo(&information);
    size = information.dwPageSize;
  }
  return size;
}

bool WindowsServices::virtualQuery(Address address, MemoryRegion<Address> &region) {
  MEMORY_BASIC_INFORMATION information{};
  if (VirtualQuery(at(address), &information, sizeof information) == 0)
    return false;
  region.begin = reinterpret_cast<Address>(information.BaseAddress);
  region.size = information.RegionSize;
  region.protection = information.Protect;
  return true;
}

bool WindowsServices::virtualProtect(Address address, Address size, std::uint32_t protection,
                                     std::uint32_t &previous) {
  DWORD old = 0;
  if (!VirtualProtect(at(address), size, protection, &old))
    return false;
  previous = old;
  return true;
}

void *WindowsServices::allocate(std::size_t size) { return malloc(size); }

void WindowsServices::release(void *block) { free(block); }

void WindowsServices::sort(void *records, std::size_t count, std::size_t size,
                           int (*compare)(const void *, const void *)) {
  qsort(records, count, size, compare);
}

void WindowsServices::abort() { ::abort(); }

void WindowsServices::assertionFailed(const char16_t *condition, std::uint32_t line) {
  _wassert(wide(condition), L"ImageHeaders.h", line);
  __builtin_unreachable();
}

} // namespace wrt::startup
