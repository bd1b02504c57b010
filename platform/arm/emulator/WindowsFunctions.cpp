#include "Process.h"

#include <fmt/core.h>

namespace wrt::emulator {

namespace {

// Handles of modules that are not emulated.
constexpr Address kKernelBase = 0x7F000000;
constexpr Address kMainProgram = 0x7F100000;
constexpr std::uint32_t kCurrentProcess = 0xFFFFFFFF;
constexpr std::uint32_t kStandardOutput = 0xFFFFFFF5; // as it is asked for, and its handle here
constexpr std::uint32_t kModuleNotFound = 126;        // ERROR_MOD_NOT_FOUND

std::string narrow(const std::u16string &text) { return {text.begin(), text.end()}; }

/// Defines the functions; each is a member, and `this` lives as long as the process.
class WindowsFunctions {
public:
  explicit WindowsFunctions(Process &process) : process_(process), machine_(process.machine()) {}

  void define() {
    add("GetModuleHandleExW", &WindowsFunctions::getModuleHandleEx);
    add("GetModuleHandleW", &WindowsFunctions::getModuleHandle);
    add("GetProcAddress", &WindowsFunctions::getProcAddress);
    add("GetModuleInformation", &WindowsFunctions::getModuleInformation);
    add("GetCurrentProcess", &WindowsFunctions::getCurrentProcess);
    add("GetNativeSystemInfo", &WindowsFunctions::getNativeSystemInfo);
    add("VirtualQuery", &WindowsFunctions::virtualQuery);
    add("VirtualProtect", &WindowsFunctions::virtualProtect);
    add("malloc", &WindowsFunctions::allocate);
    add("free", &WindowsFunctions::release);
    add("abort", &WindowsFunctions::abort);
    add("_wassert", &WindowsFunctions::assertionFailed);
    add("LoadLibraryExW", &WindowsFunctions::loadLibraryEx);
    add("GetLastError", &WindowsFunctions::getLastError);
    add("GetStdHandle", &WindowsFunctions::getStdHandle);
    add("WriteFile", &WindowsFunctions::writeFile);
    add("ExitProcess", &WindowsFunctions::exitProcess);
  }

private:
  using Member = std::uint32_t (WindowsFunctions::*)(const HostCall &);

  void add(const std::string &name, Member member) {
    machine_.define(name, [self = *this, name, member](const HostCall &call) mutable {
      self.process_.calls.push_back(name);
      return (self.*member)(call);
    });
  }

  std::uint32_t getModuleHandleEx(const HostCall &call) {
    Address handle = 0;
    if (call[0] == 6) { // from an address, without counting a reference
      const Module *module = process_.moduleAt(call[1]);
      handle = module ? module->base : 0;
    } else if (call[0] == 2 && narrow(machine_.readWideString(call[1])) == "KERNELBASE.dll") {
      handle = process_.hasKernel ? kKernelBase : 0;
    } else {
      throw Fault(fmt::format("GetModuleHandleExW with flags {}", call[0]));
    }
    machine_.writeWord(call[2], handle);
    return handle != 0;
  }

  std::uint32_t getModuleHandle(const HostCall &call) {
    if (call[0] == 0)
      return kMainProgram;
    const std::string name = narrow(machine_.readWideString(call[0]));
    process_.calls.back() += " " + name;
    const Module *module = process_.findModule(name);
    return module && !process_.hiddenModules.count(name) ? module->base : 0;
  }

  std::uint32_t getProcAddress(const HostCall &call) {
    const std::string name = machine_.readString(call[1]);
    if (call[0] == kMainProgram) {
      const auto found = process_.programExports.find(name);
      return found == process_.programExports.end() ? 0 : found->second;
    }
    if (call[0] == kKernelBase) {
      return process_.hasGetModuleInformation && name == "GetModuleInformation"
                 ? machine_.hostFunction(name)
                 : 0;
    }
    const Module *module = process_.moduleAt(call[0]);
    if (!module || module->base != call[0])
      throw Fault(fmt::format("GetProcAddress of module {:#x}", call[0]));
    if (const auto found = process_.replacedExports.find(name);
        found != process_.replacedExports.end())
      return found->second;
    return module->find(name);
  }

  std::uint32_t getModuleInformation(const HostCall &call) {
    const Module *module = process_.moduleAt(call[1]);
    if (call[0] != kCurrentProcess || !module || call[3] != 12)
      return 0;
    machine_.writeWord(call[2], module->base);
    machine_.writeWord(call[2] + 4, module->image.size());
    machine_.writeWord(call[2] + 8, module->address(module->image.entryPoint()));
    return 1;
  }

  std::uint32_t getCurrentProcess(const HostCall &) { return kCurrentProcess; }

  std::uint32_t getNativeSystemInfo(const HostCall &call) {
    machine_.writeWord(call[0] + 4, Machine::kPageSize);
    return 0;
  }

  std::uint32_t virtualQuery(const HostCall &call) {
    const Module *module = process_.moduleAt(call[0]);
    if (!module || call[2] != 28)
      return 0;
    const Address begin = call[0] & ~(Machine::kPageSize - 1);
    const std::uint32_t protection = process_.protection(begin);
    Address end = begin;
    while (process_.protection(end) == protection && module->contains(end))
      end += Machine::kPageSize;
    const std::uint32_t information[] = {begin,  module->base, 0x80,     end - begin,
                                         0x1000, protection,   0x1000000};
    machine_.write(call[1], information, sizeof information);
    return sizeof information;
  }

  std::uint32_t virtualProtect(const HostCall &call) {
    process_.protectCalls.push_back({call[0], call[1], call[2]});
    if (!process_.allowsProtect)
      return 0;
    machine_.writeWord(call[3], process_.protection(call[0]));
    process_.setProtection(call[0], call[1], call[2]);
    return 1;
  }

  std::uint32_t allocate(const HostCall &call) { return process_.allocate(call[0]); }

  std::uint32_t release(const HostCall &call) {
    process_.release(call[0]);
    return 0;
  }

  std::uint32_t abort(const HostCall &) { throw Ended("abort"); }

  std::uint32_t assertionFailed(const HostCall &call) {
    throw Ended("assertion failed: " + narrow(machine_.readWideString(call[0])));
  }

  // What a program uses. All modules are there before it begins: loading one finds it or fails.
  std::uint32_t loadLibraryEx(const HostCall &call) {
    const Module *module = process_.findModule(narrow(machine_.readWideString(call[0])));
    return module ? module->base : 0;
  }

  // The one failure that a program asks about.
  std::uint32_t getLastError(const HostCall &) { return kModuleNotFound; }

  std::uint32_t getStdHandle(const HostCall &call) {
    return call[0] == kStandardOutput ? kStandardOutput : 0;
  }

  std::uint32_t writeFile(const HostCall &call) {
    if (call[0] != kStandardOutput)
      return 0;
    const std::vector<std::uint8_t> bytes = machine_.read(call[1], call[2]);
    process_.console->write(reinterpret_cast<const char *>(bytes.data()),
                            static_cast<std::streamsize>(bytes.size()));
    machine_.writeWord(call[3], call[2]);
    return 1;
  }

  std::uint32_t exitProcess(const HostCall &call) { throw Exited(call[0]); }

  Process &process_;
  Machine &machine_;
};

} // namespace

void defineWindowsFunctions(Process &process) { WindowsFunctions(process).define(); }

} // namespace wrt::emulator
