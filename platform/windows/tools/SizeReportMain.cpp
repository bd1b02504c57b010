// sizereport write IMAGE MAP DOCUMENT            puts the report between the marks in DOCUMENT
// sizereport check IMAGE MAP CATALOGUE DIGEST LIST   compares with the goals
//
// LIST names the methods that may be larger than others, one on a line, with a `#` and the reason
// behind. The last line says what was looked at. Exit status: 0 when all is well, 1 when a goal is
// missed or a file cannot be read, 2 for wrong usage.
#include "SizeReport.h"

#include <fstream>
#include <iostream>
#include <sstream>
#include <string_view>

namespace {

using namespace wrt::pe;

constexpr std::string_view kBegin = "<!-- sizereport -->\n";
constexpr std::string_view kEnd = "<!-- end of sizereport -->\n";

int write(const SizeReport &report, const std::filesystem::path &document) {
  std::stringstream text;
  text << std::ifstream(document).rdbuf();
  const std::string old = text.str();
  const std::size_t begin = old.find(kBegin);
  const std::size_t end = old.find(kEnd);
  if (begin == std::string::npos || end == std::string::npos || end < begin)
    throw FormatError(document.string() + ": the marks of the report are missing");
  std::ofstream out(document);
  out << old.substr(0, begin + kBegin.size()) << '\n';
  writeReport(report, out);
  out << '\n' << old.substr(end);
  return out.flush() ? 0 : 1;
}

std::vector<std::string> readList(const std::string &file) {
  std::vector<std::string> names;
  for (std::string line : wrt::catalogue::readLines(file)) {
    line.resize(std::min(line.size(), line.find('#')));
    line.resize(line.find_last_not_of(' ') + 1);
    if (!line.empty())
      names.push_back(line);
  }
  return names;
}

int check(const SizeReport &report, const std::string &catalogue, const std::string &digest,
          const std::string &list) {
  const SizeCheck result = checkSizes(report, wrt::catalogue::readMethods(catalogue),
                                      wrt::catalogue::readClasses(digest), readList(list));
  for (const std::string &problem : result.problems)
    std::cout << problem << '\n';
  std::cout << report.file << " bytes, " << report.content.shapes << " shapes, " << result.methods
            << " methods, " << result.valueAccessors << " value getters and setters, "
            << result.problems.size() << " goals missed\n";
  return result.problems.empty() && result.methods > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
  const std::string_view command = argc > 1 ? argv[1] : "";
  try {
    if (command == "write" && argc == 5)
      return write(SizeReport::read(argv[2], argv[3]), argv[4]);
    if (command == "check" && argc == 7)
      return check(SizeReport::read(argv[2], argv[3]), argv[4], argv[5], argv[6]);
  } catch (const std::runtime_error &error) {
    std::cerr << "sizereport: " << error.what() << '\n';
    return 1;
  }
  std::cerr
      << "usage: sizereport write IMAGE MAP DOCUMENT | check IMAGE MAP CATALOGUE DIGEST LIST\n";
  return 2;
}
