#ifndef WRT_TESTS_TEST_PROCESS_H
#define WRT_TESTS_TEST_PROCESS_H

#include "Services.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace wrt::startup::test {

using Address = Armv7::Address;

/// What `abort` and a failed assertion do in a test.
struct Aborted {};
struct AssertionFailed {
  std::u16string condition;
};

/// Page protections besides those that start-up names (Windows 10 SDK 10.0.16299.0, winnt.h).
inline constexpr std::uint32_t kPageReadOnly = 0x02;
inline constexpr std::uint32_t kPageWriteCopy = 0x08;
inline constexpr std::uint32_t kPageExecuteRead = 0x20;

/// A process with one module, as start-up sees it: the module's image lies in real memory that
/// 32-bit addresses reach, between pages of somebody else that are writable too. Protections are
/// real as well, so that a write to a page that is not open crashes. One that is copied on write
/// counts as not writable.
class TestProcess {
public:
  static constexpr std::uint32_t kPageSize = 4096;
  static constexpr Address kBase = 0x20000000;

  /// One page for each protection, all of them zeroes.
  explicit TestProcess(std::vector<std::uint32_t> protections);
  TestProcess(const TestProcess &) = delete;
  TestProcess &operator=(const TestProcess &) = delete;
  ~TestProcess();

  std::uint32_t imageSize() const {
    return static_cast<std::uint32_t>(protections_.size()) * kPageSize;
  }
  Address imageEnd() const { return kBase + imageSize(); }

  /// Changes the image whatever its protections are.
  void poke(Address address, const std::vector<std::uint8_t> &bytes);
  void poke32(Address address, std::uint32_t value);
  std::uint32_t peek32(Address address) const;
  std::vector<std::uint8_t> image() const;
  /// Whether the memory right before and behind the image is as it was.
  bool surroundingsAreIntact() const;
  const std::vector<std::uint32_t> &protections() const { return protections_; }

  // What a test can take away or look at.
  bool hasSelf = true;
  bool hasKernel = true;
  bool hasGetModuleInformation = true;
  bool getModuleInformationSucceeds = true;
  bool hasMemory = true;
  bool allowsProtect = true;
  /// Calls of `virtualProtect`.
  int protectCalls = 0;
  /// Blocks that were allocated and not released; the process frees them when it ends.
  std::set<void *> blocks;
  /// Each module by name with its exports.
  std::map<std::u16string, std::map<std::string, void *>> modules;
  /// The names asked of `getModuleHandle`, in order.
  std::vector<std::u16string> askedModules;

  // The services.
  using Architecture = Armv7;
  bool getModuleHandleEx(std::uint32_t flags, const void *nameOrAddress, void *&module);
  void *getModuleHandle(const char16_t *name);
  void *getProcAddress(void *module, const char *name);
  void *getCurrentProcess();
  std::uint32_t pageSize() { return kPageSize; }
  bool virtualQuery(Address address, MemoryRegion<Address> &region);
  bool virtualProtect(Address address, std::uint32_t size, std::uint32_t protection,
                      std::uint32_t &previous);
  void *allocate(std::size_t size);
  void release(void *block);
  void sort(void *records, std::size_t count, std::size_t size,
            int (*compare)(const void *, const void *));
  [[noreturn]] void abort() { throw Aborted(); }
  [[noreturn]] void assertionFailed(const char16_t *condition, std::uint32_t) {
    throw AssertionFailed{condition};
  }

private:
  void protectPage(std::size_t page, std::uint32_t protection);

  std::vector<std::uint32_t> protections_;
};

} // namespace wrt::startup::test

#endif
