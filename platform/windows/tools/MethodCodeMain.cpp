// methodcode check IMAGE MAP GOLDENS      compares the code of the functions that GOLDENS has
// methodcode update IMAGE MAP GOLDENS     puts their code into GOLDENS
//
// GOLDENS has comments, lines that begin with `#`, and functions: a line with the name, as the
// linker's map has it, and indented lines with the code. The last line says how many functions were
// compared. Exit status: 0 when all is well, 1 when something differs or cannot be read, 2 for
// wrong usage.
#include "MethodCode.h"

#include <fstream>
#include <iostream>
#include <sstream>
#include <string_view>

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
  return (std::ofstream(file) << text.str()).flush() ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
  const std::string_view command = argc == 5 ? argv[1] : "";
  try {
    if (command == "check")
      return check({argv[2], argv[3]}, readGoldens(argv[4]));
    if (command == "update")
      return update({argv[2], argv[3]}, readGoldens(argv[4]), argv[4]);
  } catch (const FormatError &error) {
    std::cerr << "methodcode: " << error.what() << '\n';
    return 1;
  }
  std::cerr << "usage: methodcode check|update IMAGE MAP GOLDENS\n";
  return 2;
}
