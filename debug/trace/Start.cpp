// Where the trace begins: before `main`, when the library and all bridges are there.

#include "debug/trace/Alive.h"
#include "debug/trace/Crossing.h"
#include "debug/trace/Methods.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

namespace wrt::trace {

namespace {

// Never destroyed: calls may come until the very end.
Settings &ownSettings() {
  static auto &instance = *new Settings;
  return instance;
}

/// The tables lie in a folder beside this library, wherever that is.
std::string tablesFolder() {
  Dl_info info;
  dladdr(reinterpret_cast<const void *>(&tablesFolder), &info);
  const std::string path = info.dli_fname;
  const size_t slash = path.rfind('/');
  return (slash == std::string::npos ? "." : path.substr(0, slash)) + "/wrtobjcbridge";
}

[[gnu::constructor]] void start() {
  try {
    Settings &settings = ownSettings();
    settings.options = Options::read(environ);
    const Options &options = settings.options;
    settings.tables = Tables::read(options.tables.empty() ? tablesFolder() : options.tables);
    options.check(settings.tables);
    if (!options.file.empty()) {
      settings.output = open(options.file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
      if (settings.output < 0)
        throw std::system_error(errno, std::generic_category(), options.file);
    }
    // Before any subclass has received a message.
    if (options.listsAlive) {
      traceLives();
      std::atexit(WRTTraceWriteAlive);
    }
    traceMethods(settings);
  } catch (const std::exception &failure) {
    std::fprintf(stderr, "WRTTrace: %s\n", failure.what());
    std::_Exit(2);
  }
}

} // namespace

const Settings &settings() { return ownSettings(); }

} // namespace wrt::trace
