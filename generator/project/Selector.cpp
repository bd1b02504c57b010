#include "generator/project/Selector.h"

#include <cctype>

namespace bridgegen {

namespace {

using Word = MethodParameter::Word;

std::string lowered(std::string name) {
  name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
  return name;
}

std::string raised(std::string name) {
  name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  return name;
}

/// The words that an array parameter takes in the method, in order.
std::vector<Word> words(const Parameter &parameter) {
  const bool isObject = parameter.isObjectArray();
  switch (parameter.passing) {
  case Passing::In:
  case Passing::Out:
    return {Word::Value};
  case Passing::InArray:
  case Passing::OutArray:
    return isObject ? std::vector{Word::Value} : std::vector{Word::Count, Word::Value};
  case Passing::FillArray:
    return {Word::Count, Word::Value};
  case Passing::CountedFillArray:
    return isObject ? std::vector{Word::Count, Word::Value}
                    : std::vector{Word::Count, Word::FilledCount, Word::Value};
  case Passing::BulkRead:
    return isObject ? std::vector{Word::Count}
                    : std::vector{Word::Count, Word::Value, Word::FilledCount};
  case Passing::ReturnedArray:
    return isObject ? std::vector<Word>() : std::vector{Word::Count, Word::Value};
  case Passing::ReturnedFillArray:
    return isObject ? std::vector{Word::Count}
                    : std::vector{Word::Count, Word::FilledCount, Word::Value};
  }
  return {};
}

} // namespace

const std::string &MethodParameter::name() const {
  switch (word) {
  case Word::Count:
    return parameter->countName;
  case Word::FilledCount:
    return parameter->filledName;
  case Word::Value:
    break;
  }
  return parameter->name;
}

std::vector<MethodParameter> methodParameters(const Member &member) {
  std::vector<MethodParameter> parameters;
  for (const Parameter &parameter : member.parameters) {
    for (const Word word : words(parameter))
      parameters.push_back({&parameter, word});
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
