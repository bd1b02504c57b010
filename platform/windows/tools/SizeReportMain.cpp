#include "Output.h"
#include "SizeReport.h"
#include "Tool.h"

#include <fmt/core.h>

#include <iostream>
#include <sstream>

namespace {

using namespace wrt::pe;

int write(const SizeReport &report, const std::string &document) {
  std::ostringstream text;
  writeReport(report, text);
  wrt::save(document, wrt::replaceBetween("<!-- sizereport -->", "<!-- end of sizereport -->",
                                          document, fmt::format("\n{}\n", text.str())));
  return 0;
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
  wrt::Tool tool("sizereport",
                 "The sizes of an image and of what it is made of, as the linker's MAP tells.");
  tool.command("write", {"IMAGE", "MAP", "DOCUMENT"},
               "puts the report between the marks in DOCUMENT", [](const wrt::Arguments &given) {
                 return write(SizeReport::read(given["IMAGE"], given["MAP"]), given["DOCUMENT"]);
               });
  tool.command("check", {"IMAGE", "MAP", "CATALOGUE", "DIGEST", "LIST"},
               "compares with the goals; LIST names the methods that may be larger than others,\n"
               "one on a line, with a '#' and the reason behind. The last line says what was\n"
               "looked at",
               [](const wrt::Arguments &given) {
                 return check(SizeReport::read(given["IMAGE"], given["MAP"]), given["CATALOGUE"],
                              given["DIGEST"], given["LIST"]);
               });
  return tool.run(argc, argv);
}
