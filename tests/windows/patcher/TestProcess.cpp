#include "TestProcess.h"

#include <sys/mman.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace wrt::startup::test {

namespace {

constexpr std::size_t kGuardSize = TestProcess::kPageSize;

// The module that GetModuleInformation, a plain function, is asked about.
const TestProcess *measured = nullptr;

// Handles are addresses that nobody reads.
char selfHandle;
char kernelHandle;
char processHandle;

int getModuleInformation(void *process, void *module, ModuleInformation *information,
                         std::uint32_t size) {
  if (process != &processHandle || module != &selfHandle || size != sizeof *information ||
      !measured->getModuleInformationSucceeds)
    return 0;
  information->base = at<void>(TestProcess::kBase);
  information->size = measured->imageSize();
  information->entryPoint = nullptr;
  return 1;
}

int nativeProtection(std::uint32_t protection) {
  return protection & (kPageReadWrite | kPageExecuteReadWrite) ? PROT_READ | PROT_WRITE : PROT_READ;
}

} // namespace

TestProcess::TestProcess(std::vector<std::uint32_t> protections)
    : protections_(std::move(protections)) {
  void *begin = at<void>(kBase - kGuardSize);
  if (mmap(begin, imageSize() + 2 * kGuardSize, PROT_READ | PROT_WRITE,
           MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0) != begin)
    throw std::runtime_error("the test process's addresses are taken");
  for (std::size_t i = 0; i < protections_.size(); ++i)
    protectPage(i, protections_[i]);
  measured = this;
}

TestProcess::~TestProcess() {
  munmap(at<void>(kBase - kGuardSize), imageSize() + 2 * kGuardSize);
  measured = nullptr;
  for (void *block : blocks)
    std::free(block);
}

void TestProcess::poke(Address address, const std::vector<std::uint8_t> &bytes) {
  mprotect(at<void>(kBase), imageSize(), PROT_READ | PROT_WRITE);
  std::memcpy(at(address), bytes.data(), bytes.size());
  for (std::size_t i = 0; i < protections_.size(); ++i)
    protectPage(i, protections_[i]);
}

void TestProcess::poke32(Address address, std::uint32_t value) {
  std::vector<std::uint8_t> bytes(sizeof value);
  std::memcpy(bytes.data(), &value, sizeof value);
  poke(address, bytes);
}

std::uint32_t TestProcess::peek32(Address address) const {
  std::uint32_t value = 0;
  std::memcpy(&value, at(address), sizeof value);
  return value;
}

std::vector<std::uint8_t> TestProcess::image() const { return {at(kBase), at(imageEnd())}; }

bool TestProcess::surroundingsAreIntact() const {
  static const std::uint8_t kZeroes[kGuardSize] = {};
  return std::memcmp(at(kBase - kGuardSize), kZeroes, kGuardSize) == 0 &&
         std::memcmp(at(imageEnd()), kZeroes, kGuardSize) == 0;
}

bool TestProcess::getModuleHandleEx(std::uint32_t flags, const void *nameOrAddress, void *&module) {
  if (flags == 6) {
    module = &selfHandle;
    return hasSelf;
  }
  module = &kernelHandle;
  return flags == 2 && hasKernel &&
         static_cast<const char16_t *>(nameOrAddress) == std::u16string(u"KERNELBASE.dll");
}

void *TestProcess::getModuleHandle(const char16_t *name) {
  askedModules.emplace_back(name);
  const auto found = modules.find(askedModules.back());
  return found == modules.end() ? nullptr : &found->second;
}

void *TestProcess::getProcAddress(void *module, const char *name) {
  if (module == &kernelHandle) {
    return hasGetModuleInformation && name == std::string("GetModuleInformation")
               ? reinterpret_cast<void *>(getModuleInformation)
               : nullptr;
  }
  for (auto &[_, exports] : modules) {
    if (&exports == module && exports.count(name))
      return exports[name];
  }
  return nullptr;
}

void *TestProcess::getCurrentProcess() { return &processHandle; }

bool TestProcess::virtualQuery(Address address, MemoryRegion<Address> &region) {
  const std::size_t first = (address - kBase) / kPageSize;
  if (first >= protections_.size()) {
    region = {address & ~(kPageSize - 1), kPageSize, kPageReadWrite};
    return true;
  }
  std::size_t last = first;
  while (last < protections_.size() && protections_[last] == protections_[first])
    ++last;
  region.begin = kBase + static_cast<Address>(first) * kPageSize;
  region.size = static_cast<std::uint32_t>(last - first) * kPageSize;
  region.protection = protections_[first];
  return true;
}

bool TestProcess::virtualProtect(Address address, std::uint32_t size, std::uint32_t protection,
                                 std::uint32_t &previous) {
  ++protectCalls;
  const std::size_t first = (address - kBase) / kPageSize;
  const std::size_t count = size / kPageSize;
  if (!allowsProtect || first + count > protections_.size())
    return false;
  previous = protections_[first];
  for (std::size_t i = first; i < first + count; ++i) {
    protections_[i] = protection;
    protectPage(i, protection);
  }
  return true;
}

void *TestProcess::allocate(std::size_t size) {
  if (!hasMemory)
    return nullptr;
  return *blocks.insert(std::malloc(size)).first;
}

void TestProcess::release(void *block) {
  blocks.erase(block);
  std::free(block);
}

void TestProcess::sort(void *records, std::size_t count, std::size_t size,
                       int (*compare)(const void *, const void *)) {
  std::qsort(records, count, size, compare);
}

void TestProcess::protectPage(std::size_t page, std::uint32_t protection) {
  if (mprotect(at<void>(kBase + static_cast<Address>(page) * kPageSize), kPageSize,
               nativeProtection(protection)) != 0)
    throw std::runtime_error("mprotect failed");
}

} // namespace wrt::startup::test
