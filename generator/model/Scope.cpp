#include "generator/model/Scope.h"

namespace bridgegen {

std::string fullName(const std::string &nameSpace, const std::string &simpleName) {
  return nameSpace.empty() ? simpleName : nameSpace + "." + simpleName;
}

bool Scope::add(const std::string &nameSpace, const std::string &simpleName, Entry entry) {
  const std::string name = fullName(nameSpace, simpleName);
  if (!byFullName_.emplace(name, entry).second)
    return false;
  bySimpleName_.emplace(simpleName, name);
  nameSpaces_.insert(nameSpace);
  return true;
}

std::vector<Entry> Scope::find(const syntax::Section &section, const std::string &name) const {
  std::vector<Entry> found;
  const auto look = [&](const std::string &full) {
    if (const auto entry = byFullName_.find(full); entry != byFullName_.end())
      found.push_back(entry->second);
  };
  if (name.find('.') == name.npos) {
    look(fullName(section.nameSpace, name));
    if (found.empty()) {
      for (const Name &used : section.usings)
        look(fullName(used.text, name));
    }
  }
  if (found.empty())
    look(name);
  return found;
}

std::vector<std::string> Scope::namesakes(const std::string &simpleName) const {
  std::vector<std::string> names;
  const auto [begin, end] = bySimpleName_.equal_range(simpleName);
  for (auto each = begin; each != end; ++each)
    names.push_back(each->second);
  return names;
}

} // namespace bridgegen
