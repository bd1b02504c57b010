#ifndef WRT_ARM_PROCESS_H
#define WRT_ARM_PROCESS_H

#include "Machine.h"
#include "PortableExecutable.h"

#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace wrt::emulator {

/// The program ended itself: by `abort`, a failed assertion or one of the functions that call them.
struct Ended : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The program ended itself by `ExitProcess`.
struct Exited : Ended {
  explicit Exited(std::uint32_t status) : Ended("ExitProcess"), status(status) {}
  std::uint32_t status;
};

/// A DLL or a program in memory.
struct Module {
  std::string name;
  pe::Image image;
  Address base;

  Address address(pe::Rva rva) const { return base + rva; }
  bool contains(Address address) const { return address - base < image.size(); }
  /// The address of an export, or 0.
  Address find(const std::string &symbol) const;
};

/// A Windows process on the emulated machine, as far as the images under test use Windows: modules
/// off their preferred bases with imports resolved, page protections that hold, and the services of
/// `WindowsFunctions.cpp` with switches for tests.
class Process {
public:
  Process();

  /// Maps a DLL, relocates it, fills its import slots and sets the protections of its sections.
  /// Imports are taken from modules loaded before (those of the API sets of the C runtime from
  /// `crt.dll`), else from the host. Throws when a module that is loaded lacks an export. Its entry
  /// point is not called.
  Module &load(const std::filesystem::path &file);
  /// Calls the entry point with "process attach"; false when it refuses.
  bool attach(Module &module);
  /// Calls it with "process detach".
  void detach(Module &module);

  Machine &machine() { return machine_; }
  Module *findModule(const std::string &name);
  /// The export of any module, the last loaded first; throws when there is none.
  Address find(const std::string &symbol) const;
  Module *moduleAt(Address address);

  /// The protection of a page, as `VirtualQuery` tells it.
  std::uint32_t protection(Address address) const;
  void setProtection(Address address, std::uint32_t size, std::uint32_t protection);
  const std::map<Address, std::uint32_t> &protections() const { return protections_; }

  // The process's heap.
  Address allocate(std::uint32_t size);
  void release(Address block);
  std::size_t liveBlocks() const { return blocks_.size(); }

  /// What the program writes to its standard output; borrowed.
  std::ostream *console = &std::cout;

  // What a test can take away, or look at afterwards.
  bool hasKernel = true;
  bool hasGetModuleInformation = true;
  bool hasMemory = true;
  bool allowsProtect = true;
  /// The names under which `GetModuleHandleW` finds no module although it is loaded.
  std::set<std::string> hiddenModules;
  /// Imports that go to functions of the host, whatever module exports them.
  std::set<std::string> hostImports;
  /// What `GetProcAddress` answers for a name whatever the module exports.
  std::map<std::string, Address> replacedExports;
  /// The exports of the main program.
  std::map<std::string, Address> programExports;
  /// The functions of the host in the order of their calls.
  std::vector<std::string> calls;
  /// What `VirtualProtect` was asked for.
  struct ProtectCall {
    Address address;
    std::uint32_t size;
    std::uint32_t protection;
  };
  std::vector<ProtectCall> protectCalls;

private:
  Address resolve(const std::string &library, const std::string &name);
  void relocate(const Module &module, std::vector<std::uint8_t> &memory) const;

  Machine machine_;
  std::vector<std::unique_ptr<Module>> modules_;
  std::map<Address, std::uint32_t> protections_;
  std::map<Address, std::uint32_t> blocks_;
  Address nextModule_;
  Address nextBlock_;
};

/// Defines the services of Windows and of the C runtime that the host supplies.
void defineWindowsFunctions(Process &process);

} // namespace wrt::emulator

#endif
