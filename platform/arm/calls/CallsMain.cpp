// armcalls run DLL...                       start-up and the benchmark's operations: what crossed,
//                                           what it took
// armcalls check CEILINGS DLL...            holds the instructions of each operation to a ceiling
// armcalls write CEILINGS DOCUMENT DLL...   writes the ceilings anew, what it takes now and 2 % of
//                                           room, and the table of both between its marks
//
// The DLLs are the doubles and, last, the product. Instructions are the product's own; those of the
// doubles are left out. A line of CEILINGS is an operation's name, a tab, its ceiling. Exit status:
// 0 when all is well, 1 when an operation takes more or something fails, 2 for wrong usage.
#include "Rows.h"
#include "StartUp.h"

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

void save(const std::string &file, const std::string &text) {
  std::ofstream stream(file);
  stream << text;
  stream.close();
  if (!stream)
    throw std::runtime_error("cannot write " + file);
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
  std::stringstream old;
  old << std::ifstream(document).rdbuf();
  std::string text = old.str();
  const std::string begin = "<!-- arm: begin -->\n";
  const std::size_t from = text.find(begin);
  const std::size_t to = text.find("<!-- arm: end -->\n");
  if (from == std::string::npos || to == std::string::npos || to < from)
    throw std::runtime_error(document + " has no marks for the table");
  text.replace(from + begin.size(), to - from - begin.size(), table.str());
  save(file, ceilings.str());
  save(document, text);
  return 0;
}

int check(Rows &rows, const std::string &file) {
  std::map<std::string, std::uint64_t> ceilings;
  std::ifstream stream(file);
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

} // namespace

int main(int argc, char **argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const std::string command = arguments.empty() ? "" : arguments[0];
  const bool runs = command == "run";
  const std::size_t first = runs ? 1 : command == "write" ? 3 : 2;
  if ((!runs && command != "check" && command != "write") || arguments.size() < first + 2) {
    std::cerr
        << "usage: armcalls run DLL... | check CEILINGS DLL... | write CEILINGS DOCUMENT DLL...\n";
    return 2;
  }
  try {
    Process process;
    std::ostringstream unread;
    startUp(process, {arguments.begin() + static_cast<long>(first), arguments.end()},
            runs ? std::cout : unread);
    Rows rows(process);
    if (runs)
      return run(rows);
    return command == "check" ? check(rows, arguments[1]) : write(rows, arguments[1], arguments[2]);
  } catch (const std::exception &error) {
    std::cerr << "armcalls: " << error.what() << '\n';
    return 1;
  }
}
