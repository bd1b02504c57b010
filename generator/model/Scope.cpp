#include "generator/model/Scope.h"

namespace bridgegen {

std::string fullName(const std::string &nameSpace, const std::string &simpleName) {
  return nameSpace.empty() ? simpleName : nameSpace + "." + simpleName;
}

bool Scope::add(const std::string &nameSpace, const std::string &simpleName, Entry entry) {
  if (!byFullName_.emplace(fullName(nameSpace, simpleName), entry).second)
    return false;
  bySimpleName_[simpleName].push_back(entry);
  return true;
}

std::vector<Entry> Scope::find(const std::string &nameSpace, const std::string &name) const {
  const bool isDotted = name.find('.') != name.npos;
  const auto full = byFullName_.find(isDotted ? name : fullName(nameSpace, name));
  if (full != byFullName_.end())
    return {full->second};
  const auto simple = bySimpleName_.find(name);
  return simple == bySimpleName_.end() ? std::vector<Entry>() : simple->second;
}

} // namespace bridgegen
