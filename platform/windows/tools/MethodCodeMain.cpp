#include "MethodCode.h"
#include "Output.h"
#include "Tool.h"

#include <fstream>
#include <iostream>
#include <sstream>

namespace {

using namespace wrt::pe;

/// A part of the file: a line, and the code below it when it is a function's name.
struct Entry {
  std::string line;
  std::vector<std::string> code;

  bool isFunction() const { return !line.empty() && line[0] != '#'; }
};

std::vector<Entry> readGoldens(const std::filesystem::path &file) {
  std::ifstream stream(file);
  if (!stream)
    throw FormatError("cannot open " + file.string());
  std::vector<Entry> entries;
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with(' ') && !entries.empty() && entries.back().isFunction()) {
      entries.back().code.push_back(line);
    } else {
      entries.push_back({line, {}});
    }
  }
  return entries;
}

/// Prints what is between the common beginning and the common end.
void printDifference(const Entry &entry, const std::vector<std::string> &code) {
  auto oldBegin = entry.code.begin();
  auto oldEnd = entry.code.end();
  auto newBegin = code.begin();
  auto newEnd = code.end();
  while (oldBegin < oldEnd && newBegin < newEnd && *oldBegin == *newBegin)
    ++oldBegin, ++newBegin;
  while (oldBegin < oldEnd && newBegin < newEnd && oldEnd[-1] == newEnd[-1])
    --oldEnd, --newEnd;
  std::cout << entry.line << '\n';
  for (; oldBegin < oldEnd; ++oldBegin)
    std::cout << "-" << *oldBegin << '\n';
  for (; newBegin < newEnd; ++newBegin)
    std::cout << "+" << *newBegin << '\n';
}

int check(const MethodCode &code, const std::vector<Entry> &entries) {
  int functions = 0;
  int differences = 0;
  for (const Entry &entry : entries) {
    if (!entry.isFunction())
      continue;
    ++functions;
    const auto now = code.disassemble(entry.line);
    if (now != entry.code) {
      ++differences;
      printDifference(entry, now);
    }
  }
  std::cout << functions << " functions, " << differences << " differ\n";
  return functions > 0 && differences == 0 ? 0 : 1;
}

int update(const MethodCode &code, const std::vector<Entry> &entries,
           const std::filesystem::path &file) {
  // Everything first: a function that is missing must not cost the file.
  std::ostringstream text;
  for (const Entry &entry : entries) {
    text << entry.line << '\n';
    if (!entry.isFunction())
      continue;
    for (const std::string &line : code.disassemble(entry.line))
      text << line << '\n';
  }
  wrt::save(file, text.str());
  return 0;
}

} // namespace

int main(int argc, char **argv) {
  wrt::Tool tool(
      "methodcode",
      "Keeps the code of functions of an image. GOLDENS has comments, lines that begin with\n"
      "'#', and functions: a line with the name, as the linker's MAP has it, and indented\n"
      "lines with the code.");
  tool.command("check", {"IMAGE", "MAP", "GOLDENS"},
               "compares the code of the functions that GOLDENS has; the last line says how\n"
               "many there were",
               [](const wrt::Arguments &given) {
                 return check({given["IMAGE"], given["MAP"]}, readGoldens(given["GOLDENS"]));
               });
  tool.command("update", {"IMAGE", "MAP", "GOLDENS"}, "puts their code into GOLDENS",
               [](const wrt::Arguments &given) {
                 return update({given["IMAGE"], given["MAP"]}, readGoldens(given["GOLDENS"]),
                               given["GOLDENS"]);
               });
  return tool.run(argc, argv);
}
