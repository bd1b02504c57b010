#include "catalogue/reader/CatalogueTables.h"

#include <charconv>
#include <fstream>
#include <stdexcept>

namespace wrt::catalogue {

namespace {

using Row = std::vector<std::string>;

/// Hands each line's columns to `take`, which answers whether they are what it expects.
template <class Take>
void readRows(const std::string &file, char separator, Take take) {
  size_t number = 0;
  for (const std::string &line : readLines(file)) {
    const Row row = split(line, separator);
    ++number;
    if (!take(row))
      throw std::runtime_error(file + " is of another version: line " + std::to_string(number) +
                               " has " + std::to_string(row.size()) + " columns");
  }
}

std::string nothingIfDash(const std::string &column) { return column == "-" ? "" : column; }

std::optional<int> number(const std::string &column) {
  int value = 0;
  const char *end = column.data() + column.size();
  return std::from_chars(column.data(), end, value).ptr == end ? std::optional(value)
                                                               : std::nullopt;
}

} // namespace

std::vector<Method> readMethods(const std::string &file) {
  std::vector<Method> methods;
  readRows(file, '\t', [&](const Row &row) {
    if (row.size() != 7 || (row[1] != "+" && row[1] != "-"))
      return false;
    methods.push_back({row[0], row[1] == "+", row[2], row[3], nothingIfDash(row[4]),
                       nothingIfDash(row[5]), number(row[6])});
    return methods.back().slot.has_value() || row[6] == "-";
  });
  return methods;
}

Identifiers readIdentifiers(const std::string &file) {
  Identifiers identifiers;
  readRows(file, '\t', [&](const Row &row) {
    if (row.size() == 4 && row[0] == "interface")
      identifiers.interfaces.push_back({row[1], row[2], row[3]});
    else if (row.size() == 5 && row[0] == "class")
      identifiers.classes.push_back({row[2], row[3], nothingIfDash(row[4])});
    else
      return false;
    return true;
  });
  return identifiers;
}

Members readMembers(const std::string &file) {
  Members members;
  readRows(file, '\t', [&](const Row &row) {
    const std::optional<int> slot = row.size() == 3 ? number(row[1]) : std::nullopt;
    if (slot)
      members.emplace(std::pair(row[0], *slot), row[2]);
    return slot.has_value();
  });
  return members;
}

std::vector<Class> readClasses(const std::string &file) {
  std::vector<Class> classes;
  readRows(file, ' ', [&](const Row &row) {
    if (row.size() == 5)
      classes.push_back({row[0], row[1], row[2]});
    return row.size() == 5;
  });
  return classes;
}

std::vector<std::string> readLines(const std::string &file) {
  std::ifstream stream(file);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);)
    lines.push_back(line);
  if (!stream.eof())
    throw std::runtime_error(file + " cannot be read");
  return lines;
}

std::vector<std::string> split(const std::string &text, char separator) {
  std::vector<std::string> pieces(1);
  for (const char c : text) {
    if (c == separator)
      pieces.emplace_back();
    else
      pieces.back() += c;
  }
  return pieces;
}

} // namespace wrt::catalogue
