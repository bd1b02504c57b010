#include "tests/headers/Compiler.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

namespace wrt::test {

namespace fs = std::filesystem;

namespace {

/// The argument as one word of the shell's.
std::string quoted(const std::string &argument) {
  std::string text = "'";
  for (const char c : argument)
    text += c == '\'' ? "'\\''" : std::string(1, c);
  return text + "'";
}

} // namespace

Compiler::Compiler(fs::path includeFolder, const std::vector<std::string> &command)
    : includeFolder_(std::move(includeFolder)),
      folder_(fs::temp_directory_path() / ("headers-" + std::to_string(getpid()))) {
  fs::create_directory(folder_);
  for (const std::string &argument : command)
    command_ += quoted(argument) + " ";
  for (const char *language : {"objective-c", "objective-c++"}) {
    const std::string output = quoted(precompiled(language));
    const std::string line = "echo '#import <Foundation/Foundation.h>' | " + command_ + "-x " +
                             language + "-header - -o " + output;
    if (std::system(line.c_str()) != 0)
      throw std::runtime_error("Foundation cannot be precompiled");
  }
  command_ += "-fsyntax-only -MMD -MF - -MT headers -I" + quoted(includeFolder_.string());
}

Compiler::~Compiler() { fs::remove_all(folder_); }

std::string Compiler::precompiled(const std::string &language) const {
  return folder_ / (language + ".pch");
}

Compilation Compiler::compileAlone(const std::string &header, const std::string &language,
                                   Foundation foundation) const {
  const std::string shared =
      foundation == Foundation::Precompiled ? " -include-pch " + quoted(precompiled(language)) : "";
  const std::string line = "exec " + command_ + shared + " -x " + quoted(language) + " -include " +
                           quoted(header) + " /dev/null 2>&1";
  Compilation compilation;
  FILE *pipe = popen(line.c_str(), "r");
  if (!pipe)
    return compilation;
  std::string output;
  std::array<char, 4096> buffer;
  while (const size_t count = fread(buffer.data(), 1, buffer.size(), pipe))
    output.append(buffer.data(), count);
  compilation.succeeded = pclose(pipe) == 0;

  // Warnings are errors, so after a success there are no messages: the files that were read, with
  // backslashes at the ends of the lines.
  if (!compilation.succeeded) {
    compilation.messages = output;
    return compilation;
  }
  const std::string ours = includeFolder_.string() + "/";
  std::istringstream words(output);
  for (std::string word; words >> word;) {
    if (word.starts_with(ours))
      compilation.headers.insert(word.substr(ours.size()));
  }
  return compilation;
}

std::vector<std::string> headersIn(const fs::path &includeFolder) {
  std::vector<std::string> headers;
  for (const auto &entry : fs::recursive_directory_iterator(includeFolder)) {
    if (entry.path().extension() == ".h")
      headers.push_back(fs::relative(entry.path(), includeFolder).string());
  }
  std::ranges::sort(headers);
  return headers;
}

} // namespace wrt::test
