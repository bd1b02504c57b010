#ifndef WRT_PATCHER_SERVICES_H
#define WRT_PATCHER_SERVICES_H

#include "Architecture.h"

#include <cstddef>
#include <cstdint>

/// The narrow interface between start-up and Windows. Start-up's logic is written as templates over
/// a `Services` type with the members below, so that native tests run the very code that the
/// library runs on ARM:
///
///     bool getModuleHandleEx(uint32_t flags, const void *nameOrAddress, void *&module);
///     void *getModuleHandle(const char16_t *name);            // null name: the main program
///     void *getProcAddress(void *module, const char *name);   // null when not exported
///     void *getCurrentProcess();
///     using Architecture = ...;                               // one of Architecture.h
///     uint32_t pageSize();
///     bool virtualQuery(Address address, MemoryRegion<Address> &region);
///     bool virtualProtect(Address address, Address size, uint32_t protection,
///                         uint32_t &previous);
///     void *allocate(size_t size);                            // null when memory runs out
///     void release(void *block);
///     void sort(void *records, size_t count, size_t size,
///               int (*compare)(const void *, const void *));
///     [[noreturn]] void abort();
///     [[noreturn]] void assertionFailed(const char16_t *condition, uint32_t line);
///
/// All of it runs on the loader's thread during process attach and detach.
namespace wrt::startup {

/// The address that `Services` deals in: an integer that holds a pointer of the image, which a test
/// maps where the integer reaches it.
template <class Services>
using AddressOf = typename Services::Architecture::Address;

/// The memory at an address.
template <class T = std::uint8_t, class Address>
T *at(Address address) {
  return reinterpret_cast<T *>(static_cast<std::uintptr_t>(address));
}

/// A run of pages with equal attributes, as `VirtualQuery` tells it.
template <class Address>
struct MemoryRegion {
  Address begin;
  /// In bytes.
  Address size;
  std::uint32_t protection;
};

/// What `GetModuleInformation` fills in.
struct ModuleInformation {
  void *base;
  std::uint32_t size;
  void *entryPoint;
};

/// Page protections (Windows 10 SDK 10.0.16299.0, winnt.h).
inline constexpr std::uint32_t kPageReadWrite = 0x04;
inline constexpr std::uint32_t kPageExecuteReadWrite = 0x40;

/// Flags of `GetModuleHandleExW` (Windows 10 SDK 10.0.16299.0, libloaderapi.h).
inline constexpr std::uint32_t kUnchangedReferenceCount = 0x2;
inline constexpr std::uint32_t kFromAddress = 0x4;

} // namespace wrt::startup

#endif
