// Makes metadata out of declarations, with ilasm in between:
//   metadata_tool il OUT.il OUT.toml FILE.idl...   the types as IL, and what of them is full
//   metadata_tool winmd IN OUT                     Windows metadata of ilasm's image

#include "tests/metadata/MetadataTool.h"
#include "generator/model/Builder.h"
#include "generator/read/Parser.h"

#include <deque>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

using namespace bridgegen;

std::string contents(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  if (!file)
    throw std::runtime_error(path + " cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string &path, const std::string &text) {
  std::ofstream file(path, std::ios::binary);
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file << text;
}

int il(const std::vector<std::string> &arguments) {
  std::deque<Source> sources;
  std::vector<syntax::Unit> units;
  Diagnostics diagnostics;
  for (size_t i = 2; i < arguments.size(); ++i)
    units.push_back(parse(sources.emplace_back(arguments[i], contents(arguments[i])), diagnostics));
  const std::unique_ptr<Model> model = buildModel(units, diagnostics);
  diagnostics.print(std::cerr);
  if (diagnostics.hasErrors())
    return 1;
  write(arguments[0], test::catalogueIl(*model));
  write(arguments[1], test::selectionOf(*model));
  return 0;
}

} // namespace

int main(int count, char **all) {
  const std::vector<std::string> arguments(all + 1, all + count);
  try {
    if (arguments.size() >= 4 && arguments[0] == "il")
      return il({arguments.begin() + 1, arguments.end()});
    if (arguments.size() == 3 && arguments[0] == "winmd") {
      write(arguments[2], test::winmdOf(contents(arguments[1])));
      return 0;
    }
  } catch (const std::exception &failure) {
    std::cerr << "metadata_tool: " << failure.what() << '\n';
    return 1;
  }
  std::cerr << "usage: metadata_tool il OUT.il OUT.toml FILE.idl... | winmd IN OUT\n";
  return 2;
}
