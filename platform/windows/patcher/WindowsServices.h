#ifndef WRT_PATCHER_WINDOWS_SERVICES_H
#define WRT_PATCHER_WINDOWS_SERVICES_H

#include "Services.h"

namespace wrt::startup {

/// Start-up's services as Windows supplies them.
class WindowsServices {
public:
  using Architecture = ThisArchitecture;
  using Address = Architecture::Address;

  bool getModuleHandleEx(std::uint32_t flags, const void *nameOrAddress, void *&module);
  void *getModuleHandle(const char16_t *name);
  void *getProcAddress(void *module, const char *name);
  void *getCurrentProcess();
  /// Asked of the system once and kept.
  std::uint32_t pageSize();
  bool virtualQuery(Address address, MemoryRegion<Address> &region);
  bool virtualProtect(Address address, Address size, std::uint32_t protection,
                      std::uint32_t &previous);
  void *allocate(std::size_t size);
  void release(void *block);
  void sort(void *records, std::size_t count, std::size_t size,
            int (*compare)(const void *, const void *));
  [[noreturn]] void abort();
  [[noreturn]] void assertionFailed(const char16_t *condition, std::uint32_t line);
};

} // namespace wrt::startup

#endif
