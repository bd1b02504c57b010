#include "debug/trace/Tables.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace wrt::trace {

namespace {

using Row = std::vector<std::string>;

/// Calls `visit` with the columns of each line, of which there are `columns`.
template <class Visit>
void readRows(const std::string &path, std::initializer_list<size_t> columns, Visit visit) {
  std::ifstream file(path);
  if (!file)
    throw std::runtime_error(path + " cannot be read");
  std::string line;
  for (size_t number = 1; std::getline(file, line); ++number) {
    Row row(1);
    for (const char c : line) {
      if (c == '\t')
        row.emplace_back();
      else
        row.back() += c;
    }
    if (std::ranges::find(columns, row.size()) == columns.end())
      throw std::runtime_error(path + " is of another version: line " + std::to_string(number) +
                               " has " + std::to_string(row.size()) + " columns");
    visit(row);
  }
  if (file.bad())
    throw std::runtime_error(path + " cannot be read to its end");
}

} // namespace

std::string Method::text(const char *receiver) const {
  return std::string(isClassMethod ? "+[" : "-[") + receiver + " " + selector + "]";
}

Tables Tables::read(const std::string &folder) {
  Tables tables;
  std::map<std::string, std::string> classNames; // WinRT's, by bridge
  readRows(folder + "/identifiers.tsv", {4, 5}, [&](const Row &row) {
    if (row[0] == "interface")
      tables.interfaces.emplace(row[3], row[1]);
    else
      classNames.emplace(row[2], row[3]);
  });
  std::map<std::pair<std::string, std::string>, std::string> members; // by interface and slot
  readRows(folder + "/members.tsv", {3},
           [&](const Row &row) { members.emplace(std::pair(row[0], row[1]), row[2]); });
  readRows(folder + "/catalogue.tsv", {7}, [&](const Row &row) {
    Method method{Method::What::Member, row[0], row[1] == "+", row[2], row[3], row[4], row[5], {}};
    if (method.extendedEncoding == "-")
      method.extendedEncoding = method.encoding;
    if (row[6] != "-") {
      const auto found = members.find({row[5], row[6]});
      if (found == members.end())
        throw std::runtime_error(folder + "/members.tsv is of another version: it has no slot " +
                                 row[6] + " of " + row[5]);
      method.member = found->second;
    } else if (method.selector == "cast:") {
      method.what = Method::What::Cast;
      method.interface.clear();
    } else if (method.selector == "activateInstance") {
      const auto found = classNames.find(method.className);
      if (found == classNames.end())
        return; // a root class, which activates nothing
      method.interface.clear();
      method.member = found->second + ".ActivateInstance";
    } else if (method.interface != "-" && method.hasError()) {
      method.what = Method::What::Accessor;
      method.member = method.isClassMethod ? "GetActivationFactory " : "QueryInterface ";
      method.member += method.interface;
      if (method.selector.starts_with("queryInterface"))
        method.member = "QueryInterface"; // the arguments say of what
    } else {
      return;
    }
    tables.methods.push_back(std::move(method));
  });
  if (tables.methods.empty())
    throw std::runtime_error(folder + "/catalogue.tsv is empty");
  return tables;
}

} // namespace wrt::trace
