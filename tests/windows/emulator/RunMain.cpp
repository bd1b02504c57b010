// runemulated FUNCTION DLL...
//
// Loads the DLLs in order into an emulated process, attaches each, calls FUNCTION, an export of the
// last one, and detaches them in reverse order. The function tells the host what it checked by
// `testReport(name, passed)`. Every check that failed is printed, and a summary at the end. Exit
// status: 0 when there were checks and all passed, 1 otherwise, 2 for wrong usage.
#include "Process.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace wrt::emulator;

struct Tally {
  int checks = 0;
  int failures = 0;
};

void defineReporting(Machine &machine, Tally &tally) {
  machine.define("testReport", [&](const HostCall &call) -> std::uint32_t {
    ++tally.checks;
    if (call[1] == 0) {
      ++tally.failures;
      std::cout << "FAILED " << call.machine().readString(call[0]) << '\n';
    }
    return 0;
  });
  machine.define("testLog", [](const HostCall &call) -> std::uint32_t {
    std::cout << call.machine().readString(call[0]) << '\n';
    return 0;
  });
  machine.define("testEnd", [](const HostCall &call) -> std::uint32_t {
    throw Ended(call.machine().readString(call[0]));
  });
}

int run(const std::string &function, const std::vector<std::string> &files) {
  Process process;
  Tally tally;
  defineReporting(process.machine(), tally);
  std::vector<Module *> modules;
  for (const std::string &file : files) {
    Module &module = process.load(file);
    if (!process.attach(module)) {
      std::cout << module.name << " refused to be attached\n";
      return 1;
    }
    modules.push_back(&module);
  }
  // The main program forwards to the runtime that it is linked with.
  if (Module *runtime = process.findModule("zorvex.dll"))
    process.programExports["__objc_image_unload"] = runtime->find("__objc_image_unload");

  const Address entry = modules.back()->find(function);
  if (entry == 0) {
    std::cout << modules.back()->name << " does not export " << function << '\n';
    return 1;
  }
  process.machine().call(entry, {});
  for (auto module = modules.rbegin(); module != modules.rend(); ++module)
    process.detach(**module);
  std::cout << modules.size() << " modules, " << tally.checks << " checks, " << tally.failures
            << " failed\n";
  return tally.checks > 0 && tally.failures == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
  if (argc < 3) {
    std::cerr << "usage: runemulated FUNCTION DLL...\n";
    return 2;
  }
  try {
    return run(argv[1], {argv + 2, argv + argc});
  } catch (const std::exception &error) {
    std::cout << "FAILED: " << error.what() << '\n';
    return 1;
  }
}
