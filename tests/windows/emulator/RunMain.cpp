#include "Process.h"

#include "Tool.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace wrt::emulator;

int checks = 0;
int failures = 0;

void check(bool passed, const std::string &name) {
  ++checks;
  if (!passed) {
    ++failures;
    std::cout << "FAILED " << name << '\n';
  }
}

int run(const std::vector<std::string> &files) {
  Process process;
  Machine &machine = process.machine();
  machine.define("hostReport", [](const HostCall &call) -> std::uint32_t {
    check(call[1] != 0, call.machine().readString(call[0]));
    return 0;
  });
  machine.define("hostLog", [](const HostCall &call) -> std::uint32_t {
    std::cout << call.machine().readString(call[0]) << '\n';
    return 0;
  });
  machine.define("hostEnd", [](const HostCall &call) -> std::uint32_t {
    throw Ended(call.machine().readString(call[0]));
  });
  // How many images the runtime has; none before there is one.
  const auto registeredImages = [&] {
    Module *runtime = process.findModule("zorvex.dll");
    return runtime ? machine.call(runtime->find("testRegisteredImages"), {}) : 0;
  };
  std::vector<std::pair<Module *, std::uint32_t>> modules;
  for (const std::string &file : files) {
    modules.emplace_back(&process.load(file), registeredImages());
    if (!process.attach(*modules.back().first))
      throw Ended(file + " refused to be attached");
  }
  // The main program forwards to the runtime that it is linked with.
  process.programExports["__objc_image_unload"] =
      process.findModule("zorvex.dll")->find("__objc_image_unload");
  machine.call(modules.back().first->find("runTests"), {});
  for (auto each = modules.rbegin(); each != modules.rend(); ++each) {
    process.detach(*each->first);
    check(registeredImages() == each->second,
          each->first->name + " is still registered after it was detached");
  }
  std::cout << modules.size() << " modules, " << checks << " checks, " << failures << " failed\n";
  return checks > 0 && failures == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
  wrt::Tool tool(
      "runemulated",
      "Loads the DLLs in order into an emulated process, attaches each, calls 'runTests', an\n"
      "export of the last one, and detaches the DLLs in reverse order. The function tells the\n"
      "host what it checked by 'hostReport(name, passed)'. Whether each DLL takes its image\n"
      "from the runtime again when it is detached is checked here. Every check that failed is\n"
      "printed, and a summary at the end.",
      "0 when there were checks and all passed, 1 otherwise, 2 for wrong usage.");
  tool.arguments({"DLL..."}, [](const wrt::Arguments &given) {
    try {
      return run(given.all("DLL"));
    } catch (const std::exception &error) { // a failure like others
      std::cout << "FAILED: " << error.what() << '\n';
      return 1;
    }
  });
  return tool.run(argc, argv);
}
