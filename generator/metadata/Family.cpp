#include "generator/metadata/Family.h"

#include "generator/metadata/Names.h"

#include <algorithm>

namespace bridgegen::metadata {

syntax::TypeName substituted(const syntax::TypeName &type,
                             const std::vector<std::string> &parameters,
                             const std::vector<syntax::TypeName> &arguments) {
  const auto parameter = std::find(parameters.begin(), parameters.end(), type.name.text);
  if (parameter != parameters.end())
    return arguments[static_cast<size_t>(parameter - parameters.begin())];
  syntax::TypeName result{type.name, {}};
  for (const syntax::TypeName &argument : type.arguments)
    result.arguments.push_back(substituted(argument, parameters, arguments));
  return result;
}

namespace {

struct TypeCollector {
  std::vector<const syntax::TypeName *> types;

  void operator()(const syntax::Property &property) { types.push_back(&property.type); }
  void operator()(const syntax::Event &event) { types.push_back(&event.type); }
  void operator()(const syntax::Reserved &) {}
  void operator()(const syntax::Method &method) {
    if (method.result)
      types.push_back(&*method.result);
    for (const syntax::Parameter &parameter : method.parameters)
      types.push_back(&parameter.type);
  }
};

/// Takes a type from the front of `text`.
std::optional<syntax::TypeName> takeType(std::string_view &text) {
  const auto skip = [&] { text.remove_prefix(std::min(text.find_first_not_of(' '), text.size())); };
  skip();
  const size_t end = std::min(text.find_first_of("<>, "), text.size());
  if (!isDotted(text.substr(0, end)))
    return std::nullopt;
  syntax::TypeName type{{std::string(text.substr(0, end)), {}}, {}};
  text.remove_prefix(end);
  skip();
  if (!text.starts_with('<'))
    return type;
  do {
    text.remove_prefix(1);
    const std::optional<syntax::TypeName> argument = takeType(text);
    if (!argument)
      return std::nullopt;
    type.arguments.push_back(*argument);
  } while (text.starts_with(','));
  if (!text.starts_with('>'))
    return std::nullopt;
  text.remove_prefix(1);
  skip();
  return type;
}

} // namespace

std::optional<syntax::TypeName> typeOf(std::string_view text) {
  const std::optional<syntax::TypeName> type = takeType(text);
  return text.empty() ? type : std::nullopt;
}

std::vector<const syntax::TypeName *> typesOf(const syntax::Member &member) {
  TypeCollector collector;
  std::visit(collector, member);
  return collector.types;
}

std::string spelled(const syntax::TypeName &type) {
  std::string text = type.name.text;
  for (const syntax::TypeName &argument : type.arguments)
    text += (&argument == type.arguments.data() ? "<" : ", ") + spelled(argument);
  return type.arguments.empty() ? text : text + ">";
}

} // namespace bridgegen::metadata
