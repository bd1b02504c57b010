#include "Rows.h"
#include "StartUp.h"

#include "Output.h"
#include "Tool.h"

#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace {

using namespace wrt::emulator;

void printCrossed(const Crossed &crossed) {
  for (const std::string &each : crossed)
    std::cout << (&each == crossed.data() ? "" : ", ") << each;
  std::cout << '\n';
}

int run(Rows &rows) {
  std::cout << "\ncall              instructions  what the object got\n";
  for (const Row &row : rows.rows()) {
    const std::uint64_t instructions = rows.run(row);
    std::cout << std::left << std::setw(20) << row.name << std::right << std::setw(10)
              << instructions << "  ";
    printCrossed(rows.crossed());
  }
  std::cout << "\nInstructions are the product's own, those of the libraries around it left out.\n";
  return 0;
}

int write(Rows &rows, const std::string &file, const std::string &document) {
  std::ostringstream ceilings;
  std::ostringstream table;
  table << "| operation | instructions | ceiling |\n|---|---:|---:|\n";
  for (const Row &row : rows.rows()) {
    const std::uint64_t taken = rows.run(row);
    ceilings << row.name << '\t' << taken * 102 / 100 << '\n';
    table << "| " << row.name << " | " << taken << " | " << taken * 102 / 100 << " |\n";
  }
  const std::string text =
      wrt::replaceBetween("<!-- arm: begin -->", "<!-- arm: end -->", document, table.str());
  wrt::save(file, ceilings.str());
  wrt::save(document, text);
  return 0;
}

int check(Rows &rows, const std::string &file) {
  std::map<std::string, std::uint64_t> ceilings;
  std::ifstream stream(file);
  if (!stream)
    throw std::runtime_error("cannot open " + file);
  for (std::string line; std::getline(stream, line);) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string::npos)
      throw std::runtime_error(file + ": a line has no tab: " + line);
    ceilings[line.substr(0, tab)] = std::stoull(line.substr(tab + 1));
  }
  int wrong = 0;
  for (const Row &row : rows.rows()) {
    const std::uint64_t taken = rows.run(row);
    const auto ceiling = ceilings.extract(row.name);
    if (ceiling.empty() || taken > ceiling.mapped()) {
      ++wrong;
      std::cout << row.name << " takes " << taken << " instructions, its ceiling is "
                << (ceiling.empty() ? "missing" : std::to_string(ceiling.mapped())) << '\n';
    }
  }
  for (const auto &[name, _] : ceilings) {
    ++wrong;
    std::cout << file << ": there is no operation " << name << '\n';
  }
  std::cout << rows.rows().size() << " operations, " << wrong << " wrong\n";
  return wrong == 0 ? 0 : 1;
}

/// The operations in a process that has started up with the DLLs, which `out` is told of.
int inProcess(const wrt::Arguments &given, std::ostream &out,
              const std::function<int(Rows &)> &action) {
  Process process;
  startUp(process, given.all("DLL"), out);
  Rows rows(process);
  return action(rows);
}

} // namespace

int main(int argc, char **argv) {
  wrt::Tool tool(
      "armcalls",
      "Calls the benchmark's operations in the emulated machine. The DLLs are the doubles and,\n"
      "last, the product. Instructions are the product's own; those of the doubles are left out.",
      "0 when all is well, 1 when an operation takes more or something fails,\n"
      "2 for wrong usage.");
  std::ostream nowhere(nullptr);
  tool.command("run", {"DLL..."}, "start-up and the operations: what crossed, what it took",
               [](const wrt::Arguments &given) { return inProcess(given, std::cout, run); });
  tool.command("check", {"CEILINGS", "DLL..."},
               "holds the instructions of each operation to a ceiling; a line of CEILINGS is\n"
               "an operation's name, a tab, its ceiling",
               [&](const wrt::Arguments &given) {
                 return inProcess(given, nowhere,
                                  [&](Rows &rows) { return check(rows, given["CEILINGS"]); });
               });
  tool.command("write", {"CEILINGS", "DOCUMENT", "DLL..."},
               "writes the ceilings anew, what it takes now and 2 % of room, and the table of\n"
               "both between its marks in DOCUMENT",
               [&](const wrt::Arguments &given) {
                 return inProcess(given, nowhere, [&](Rows &rows) {
                   return write(rows, given["CEILINGS"], given["DOCUMENT"]);
                 });
               });
  return tool.run(argc, argv);
}
