#include "generator/project/Selector.h"

#include <cctype>

namespace bridgegen {

namespace {

std::string lowered(std::string name) {
  name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
  return name;
}

std::string raised(std::string name) {
  name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  return name;
}

} // namespace

std::vector<MethodParameter> methodParameters(const Member &member) {
  std::vector<MethodParameter> parameters;
  for (const Parameter &parameter : member.parameters) {
    if (!parameter.isObjectArray()) {
      for (const auto &[word, pointers] : parameter.passing->words)
        parameters.push_back({&parameter, word, pointers});
      continue;
    }
    if (parameter.passing->objects->hasCapacity)
      parameters.push_back({&parameter, Word::Count, 0});
    if (!parameter.isResult())
      parameters.push_back({&parameter, Word::Value, 0});
  }
  return parameters;
}

std::string methodName(const Member &member) {
  switch (member.kind) {
  case MemberKind::Getter:
    return "get" + member.name;
  case MemberKind::Setter:
    return "set" + member.name;
  case MemberKind::EventAdd:
    return "add" + member.name;
  case MemberKind::EventRemove:
    return "remove" + member.name;
  case MemberKind::Method:
  case MemberKind::Reserved:
    break;
  }
  return lowered(member.name);
}

std::string selector(const Member &member) {
  std::string text = methodName(member) + "With";
  const std::vector<MethodParameter> parameters = methodParameters(member);
  if (parameters.empty())
    return text + "Error:";
  text += raised(parameters[0].name()) + ":";
  for (size_t i = 1; i < parameters.size(); ++i)
    text += parameters[i].name() + ":";
  return text + "error:";
}

bool soundsLikeOwning(std::string_view selector) {
  for (const std::string_view word : {"alloc", "copy", "init", "mutableCopy", "new"}) {
    if (selector.starts_with(word) &&
        !std::islower(static_cast<unsigned char>(selector[word.size()])))
      return true;
  }
  return false;
}

} // namespace bridgegen
