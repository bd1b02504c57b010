#include "generator/CommandLine.h"
#include "generator/Generate.h"
#include "generator/emit/Outputs.h"
#include "generator/metadata/Import.h"
#include "generator/read/Files.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <vector>

namespace {

using namespace bridgegen;

constexpr int kWrongInput = 1;

/// The whole file, or nothing when it cannot be read.
std::optional<std::string> contents(const std::string &path) {
  if (std::filesystem::is_directory(path)) // which can be opened, and seems empty
    return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return file && !file.bad() ? std::optional(text.str()) : std::nullopt;
}

int listOutputs(const CommandLine &commandLine) {
  std::vector<std::string> units;
  for (const std::string &file : commandLine.files)
    units.emplace_back(stem(file));
  for (const std::string &path : outputPaths(commandLine.target, units))
    std::cout << path << '\n';
  return 0;
}

/// Reads the files into sources. On failure the file that cannot be read is reported.
bool read(const std::vector<std::string> &files, Origin origin, std::deque<Source> &sources) {
  for (const std::string &file : files) {
    const std::optional<std::string> text = contents(file);
    if (!text) {
      std::cerr << file << ": error: cannot be read\n";
      return false;
    }
    sources.emplace_back(file, *text, origin);
  }
  return true;
}

int generate(const CommandLine &commandLine) {
  std::deque<Source> sources;
  std::deque<Source> handWritten;
  std::deque<Source> platform;
  if (!read(declarationFiles(commandLine.known), Origin::Known, sources) ||
      !read(commandLine.files, Origin::Own, sources) ||
      (!commandLine.handWritten.empty() &&
       !read({commandLine.handWritten}, Origin::Own, handWritten)) ||
      (!commandLine.platform.empty() && !read({commandLine.platform}, Origin::Own, platform)))
    return kWrongInput;
  Diagnostics diagnostics;
  const Extras extras{handWritten.empty() ? nullptr : &handWritten.front(),
                      commandLine.delegateHeader,
                      commandLine.componentHeader,
                      commandLine.selection,
                      !commandLine.reference.empty(),
                      platform.empty() ? nullptr : &platform.front(),
                      commandLine.target};
  const std::optional<OutputSet> outputs = bridgegen::generate(sources, extras, diagnostics);
  if (!outputs) {
    diagnostics.print(std::cerr);
    return kWrongInput;
  }
  outputs->commit(commandLine.reference.empty() ? commandLine.output : commandLine.reference);
  return 0;
}

} // namespace

int main(int count, char **arguments) {
  int status = 0;
  const auto commandLine = parseCommandLine(
      std::vector<std::string>(arguments + 1, arguments + count), std::cout, std::cerr, status);
  if (!commandLine)
    return status;
  try {
    if (commandLine->import)
      return metadata::importCommand(*commandLine->import);
    return commandLine->listOutputs ? listOutputs(*commandLine) : generate(*commandLine);
  } catch (const std::exception &failure) {
    std::cerr << "bridgegen: " << failure.what() << '\n';
    return kWrongInput;
  }
}
