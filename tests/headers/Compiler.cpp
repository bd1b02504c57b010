#include "tests/headers/Compiler.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <sstream>

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
    : includeFolder_(std::move(includeFolder)) {
  for (const std::string &argument : command)
    command_ += quoted(argument) + " ";
  command_ += "-I" + quoted(includeFolder_.string());
}

Compilation Compiler::compile(const std::vector<std::string> &headers, const std::string &language,
                              const std::string &options, const std::string &source) const {
  std::string line =
      "exec " + command_ + " -fsyntax-only -MMD -MF - -MT headers " + options + " -x " + language;
  for (const std::string &header : headers)
    line += " -include " + quoted(header);
  line += " " + quoted(source) + " 2>&1";
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

std::string Compiler::precompileFoundation(const std::string &language,
                                           const fs::path &file) const {
  const std::string line = "echo '#import <Foundation/Foundation.h>' | " + command_ + " -x " +
                           language + "-header - -o " + quoted(file.string());
  return std::system(line.c_str()) == 0 ? "-include-pch " + quoted(file.string()) : "";
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
