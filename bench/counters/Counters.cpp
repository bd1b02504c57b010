// Stands before the Objective-C runtime's functions and counts who calls them. The functions are
// declared here with plain pointers, which is what they take (libobjc of GCC 12).

#include "bench/counters/Counters.h"

#include <atomic>
#include <dlfcn.h>
#include <link.h>
#include <string_view>
#include <vector>

namespace {

struct Range {
  uintptr_t begin;
  uintptr_t end;
  bool sends;   ///< whether messages from here count
  bool looksUp; ///< whether look-ups from here count
};

std::atomic<uint64_t> messages;
std::atomic<uint64_t> lookUps;

/// The code of our libraries and of the program.
const std::vector<Range> &ranges() {
  static const std::vector<Range> ours = [] {
    std::vector<Range> found;
    dl_iterate_phdr(
        [](dl_phdr_info *info, size_t, void *data) {
          const std::string_view name = info->dlpi_name;
          const bool isProgram = name.empty();
          const bool isLibrary = name.find("/libWRT") != name.npos;
          const bool isRuntime = name.find("/libzorvex") != name.npos;
          if (!isProgram && !isLibrary && !isRuntime)
            return 0;
          const bool isPlatform = isLibrary && name.find("/libWRTObjcBridge") == name.npos;
          for (int i = 0; i < info->dlpi_phnum; ++i) {
            const auto &header = info->dlpi_phdr[i];
            if (header.p_type != PT_LOAD || (header.p_flags & PF_X) == 0)
              continue;
            const uintptr_t begin = info->dlpi_addr + header.p_vaddr;
            static_cast<std::vector<Range> *>(data)->push_back(
                {begin, begin + header.p_memsz, !isPlatform, !isProgram});
          }
          return 0;
        },
        &found);
    return found;
  }();
  return ours;
}

const Range *rangeOf(void *address) {
  const auto where = reinterpret_cast<uintptr_t>(address);
  for (const Range &range : ranges())
    if (where >= range.begin && where < range.end)
      return &range;
  return nullptr;
}

void countMessage(void *caller) {
  if (const Range *range = rangeOf(caller); range && range->sends)
    messages.fetch_add(1, std::memory_order_relaxed);
}

void countLookUp(void *caller) {
  if (const Range *range = rangeOf(caller); range && range->looksUp)
    lookUps.fetch_add(1, std::memory_order_relaxed);
}

/// The function that would be called without this library.
template <class Function>
Function *original(const char *name) {
  return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

using Look = void *(void *, void *);
using Find = void *(const char *);

} // namespace

extern "C" {

void *objc_msg_lookup(void *receiver, void *selector) {
  static Look *const next = original<Look>("objc_msg_lookup");
  countMessage(__builtin_return_address(0));
  return next(receiver, selector);
}

void *objc_msg_lookup_super(void *super, void *selector) {
  static Look *const next = original<Look>("objc_msg_lookup_super");
  countMessage(__builtin_return_address(0));
  return next(super, selector);
}

#define WRT_COUNT_LOOK_UP(name)                                                                    \
  void *name(const char *className) {                                                              \
    static Find *const next = original<Find>(#name);                                               \
    countLookUp(__builtin_return_address(0));                                                      \
    return next(className);                                                                        \
  }
WRT_COUNT_LOOK_UP(objc_getClass)
WRT_COUNT_LOOK_UP(objc_get_class)
WRT_COUNT_LOOK_UP(objc_lookup_class)
WRT_COUNT_LOOK_UP(objc_lookUpClass)
WRT_COUNT_LOOK_UP(objc_getRequiredClass)
WRT_COUNT_LOOK_UP(objc_getMetaClass)
WRT_COUNT_LOOK_UP(objc_get_meta_class)

void wrtReadCounts(wrt::bench::Counts *counts) { *counts = {messages.load(), lookUps.load()}; }
}
