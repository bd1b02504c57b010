#include "Identifiers.h"

#include "PortableExecutable.h"
#include "Text.h"

#include <fstream>
#include <sstream>
#include <vector>

namespace wrt::sweep {

namespace {

/// An identifier as text, in the order in which it lies in memory: three little-endian numbers,
/// then bytes.
emulator::Iid parse(std::string text) {
  std::erase(text, '-');
  emulator::Iid iid{};
  constexpr std::uint8_t kOrder[] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
  for (std::size_t i = 0; i < iid.size(); ++i)
    iid.at(kOrder[i]) = static_cast<std::uint8_t>(std::stoul(text.substr(2 * i, 2), nullptr, 16));
  return iid;
}

} // namespace

Identifiers Identifiers::read(const std::filesystem::path &file) {
  Identifiers result;
  // Written by hand, so not in the table.
  result.bridges["WRTIInspectableBridge"] = parse("AF86E2E0-B12D-4C6A-9C5A-D7AA65101E90");
  std::ifstream stream(file);
  std::vector<std::vector<std::string>> classes;
  int number = 0;
  for (std::string line; std::getline(stream, line);) {
    ++number;
    std::vector<std::string> columns;
    std::istringstream text(line);
    for (std::string column; std::getline(text, column, '\t');)
      columns.push_back(column);
    if (columns.size() == 4 && columns[0] == "interface" && columns[3].size() == 36)
      result.interfaces[columns[1]] = result.bridges[columns[2]] = parse(columns[3]);
    else if (columns.size() == 5 && columns[0] == "class")
      classes.push_back(columns);
    else
      throw pe::FormatError(pe::join(file.string(), ":", number, ": no interface and no class"));
  }
  for (const auto &each : classes) {
    result.classes[each[2]] = {{each[3].begin(), each[3].end()}, each[4]};
    if (each[4] != "-")
      result.bridges[each[2]] = result.interfaces.at(each[4]);
  }
  return result;
}

} // namespace wrt::sweep
