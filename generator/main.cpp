#include "generator/CommandLine.h"
#include "generator/emit/Emit.h"
#include "generator/model/Builder.h"
#include "generator/model/Check.h"
#include "generator/read/Parser.h"

#include <deque>
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>

namespace {

using namespace bridgegen;

constexpr int kWrongInput = 1;
constexpr int kWrongUsage = 2;

/// The whole file, or nothing when it cannot be read.
std::optional<std::string> contents(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return file && !file.bad() ? std::optional(text.str()) : std::nullopt;
}

int listOutputs(const CommandLine &commandLine) {
  std::vector<std::string> units;
  for (const std::string &file : commandLine.files)
    units.emplace_back(stem(file));
  for (const std::string &path : outputPaths(units))
    std::cout << path << '\n';
  return 0;
}

int generate(const CommandLine &commandLine) {
  std::deque<Source> sources; // positions point into it
  for (const std::string &file : commandLine.files) {
    const std::optional<std::string> text = contents(file);
    if (!text) {
      std::cerr << file << ": error: cannot be read\n";
      return kWrongInput;
    }
    sources.emplace_back(file, *text);
  }

  Diagnostics diagnostics;
  std::vector<syntax::Unit> units;
  for (const Source &source : sources)
    units.push_back(parse(source, diagnostics));
  // Names that a half-read file would have declared are not worth reporting.
  std::unique_ptr<Model> model;
  if (!diagnostics.hasErrors())
    model = buildModel(units, diagnostics);
  if (!diagnostics.hasErrors())
    check(*model, diagnostics);
  if (diagnostics.hasErrors()) {
    diagnostics.print(std::cerr);
    return kWrongInput;
  }
  emitAll(*model).commit(commandLine.output);
  return 0;
}

} // namespace

int main(int count, char **arguments) {
  std::string problem;
  const auto commandLine =
      parseCommandLine(std::vector<std::string>(arguments + 1, arguments + count), problem);
  if (!commandLine) {
    std::cerr << "bridgegen: " << problem << "; 'bridgegen --help' tells more\n";
    return kWrongUsage;
  }
  if (commandLine->help) {
    std::cout << kHelp;
    return 0;
  }
  try {
    return commandLine->listOutputs ? listOutputs(*commandLine) : generate(*commandLine);
  } catch (const std::exception &failure) {
    std::cerr << "bridgegen: " << failure.what() << '\n';
    return kWrongInput;
  }
}
