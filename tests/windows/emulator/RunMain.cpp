// runemulated FUNCTION[,FUNCTION]... DLL...
//
// Loads the DLLs in order into an emulated process, attaches each, calls the FUNCTIONs, exports of
// the last one, and detaches the DLLs in reverse order. The functions tell the host what they
// checked by `hostReport(name, passed)`; one that is to end the program says so before by
// `hostExpectEnd(message)`. Whether each DLL takes its image from the runtime again when it is
// detached is checked here. Every check that failed is printed, and a summary at the end. Exit
// status: 0 when there were checks and all passed, 1 otherwise, 2 for wrong usage.
#include "Process.h"

#include "Text.h"

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace wrt::emulator;

class Run {
public:
  Run() {
    Machine &machine = process_.machine();
    machine.define("hostReport", [this](const HostCall &call) -> std::uint32_t {
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
    machine.define("hostExpectEnd", [this](const HostCall &call) -> std::uint32_t {
      expectedEnd_ = call.machine().readString(call[0]);
      return 0;
    });
  }

  /// False when a DLL refuses to be attached.
  bool attach(const std::vector<std::string> &files) {
    for (const std::string &file : files) {
      Module &module = process_.load(file);
      const std::uint32_t registered = registeredImages();
      if (!process_.attach(module)) {
        std::cout << module.name << " refused to be attached\n";
        return false;
      }
      modules_.push_back({&module, registered});
    }
    // The main program forwards to the runtime that it is linked with.
    if (Module *runtime = process_.findModule("zorvex.dll"))
      process_.programExports["__objc_image_unload"] = runtime->find("__objc_image_unload");
    return true;
  }

  void call(const std::string &function) {
    const Module &last = *modules_.back().module;
    const Address entry = last.find(function);
    if (entry == 0)
      throw wrt::pe::FormatError(wrt::pe::join(last.name, " does not export ", function));
    expectedEnd_.clear();
    std::string end;
    try {
      process_.machine().call(entry, {});
    } catch (const Ended &ended) {
      end = ended.what();
      if (expectedEnd_.empty())
        throw;
    }
    if (!expectedEnd_.empty()) {
      check(end == expectedEnd_,
            wrt::pe::join(function, " ends with \"", end, "\", not with \"", expectedEnd_, '"'));
    }
  }

  void detach() {
    for (auto each = modules_.rbegin(); each != modules_.rend(); ++each) {
      process_.detach(*each->module);
      check(registeredImages() == each->registeredBefore,
            each->module->name + " is still registered after it was detached");
    }
  }

  /// Prints the summary and gives the exit status.
  int finish() const {
    std::cout << modules_.size() << " modules, " << checks_ << " checks, " << failures_
              << " failed\n";
    return checks_ > 0 && failures_ == 0 ? 0 : 1;
  }

private:
  struct Attached {
    Module *module;
    std::uint32_t registeredBefore;
  };

  void check(bool passed, const std::string &name) {
    ++checks_;
    if (!passed) {
      ++failures_;
      std::cout << "FAILED " << name << '\n';
    }
  }

  /// How many images the runtime has; none before there is one.
  std::uint32_t registeredImages() {
    Module *runtime = process_.findModule("zorvex.dll");
    return runtime ? process_.machine().call(runtime->find("testRegisteredImages"), {}) : 0;
  }

  Process process_;
  std::vector<Attached> modules_;
  std::string expectedEnd_;
  int checks_ = 0;
  int failures_ = 0;
};

int run(const std::string &functions, const std::vector<std::string> &files) {
  Run run;
  if (!run.attach(files))
    return 1;
  std::istringstream names(functions);
  for (std::string name; std::getline(names, name, ',');)
    run.call(name);
  run.detach();
  return run.finish();
}

} // namespace

int main(int argc, char **argv) {
  if (argc < 3) {
    std::cerr << "usage: runemulated FUNCTION[,FUNCTION]... DLL...\n";
    return 2;
  }
  try {
    return run(argv[1], {argv + 2, argv + argc});
  } catch (const std::exception &error) {
    std::cout << "FAILED: " << error.what() << '\n';
    return 1;
  }
}
