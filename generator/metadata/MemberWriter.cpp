#include "generator/metadata/MemberWriter.h"

namespace bridgegen::metadata {

namespace {

constexpr size_t kColumns = 96; ///< behind the indentation of members

std::string joined(std::string text, const std::vector<std::string> &items, bool isTight) {
  size_t lineStart = 0;
  for (const std::string &item : items) {
    const bool isFirst = &item == items.data();
    if (!isFirst)
      text += ",";
    if (text.size() - lineStart + item.size() + 2 > kColumns && !(isFirst && isTight)) {
      text += "\n";
      lineStart = text.size();
      text += "    ";
    } else if (!isFirst || !isTight) {
      text += " ";
    }
    text += item;
  }
  return text;
}

struct MemberPrinter {
  Writer &writer;
  const std::string &nameSpace;

  void operator()(const syntax::Reserved &) const { writer.append("reserved;\n"); }

  void operator()(const syntax::Property &property) const {
    std::string accessors;
    for (const syntax::Accessor &accessor : property.accessors)
      accessors += (accessor.isSetter ? "set" : "get") +
                   (accessor.parameter ? "(" + accessor.parameter->text + ")" : "") + "; ";
    writer.write("% % { %}\n", shortName(property.type, nameSpace), property.name.text, accessors);
  }

  void operator()(const syntax::Event &event) const {
    writer.write("event % %%;\n", shortName(event.type, nameSpace), event.name.text,
                 event.parameter ? "(" + event.parameter->text + ")" : "");
  }

  void operator()(const syntax::Method &method) const {
    for (const syntax::Attribute &attribute : method.attributes)
      writer.write("[%(\"%\")]\n", attribute.name.text, attribute.value->text);
    std::vector<std::string> parameters;
    for (const syntax::Parameter &parameter : method.parameters)
      parameters.push_back(text(parameter));
    const std::string result = method.result ? shortName(*method.result, nameSpace) : "void";
    writer.write("%;\n", enclosed(result + " " + method.name.text + "(", parameters));
  }

  std::string text(const syntax::Parameter &parameter) const {
    std::string text = parameter.isReturn ? "return " : "";
    text += parameter.isOut ? "out " : "";
    text += parameter.isFill ? "fill " : "";
    text += shortName(parameter.type, nameSpace);
    if (parameter.array) {
      text += "[" + (parameter.array->count ? parameter.array->count->name.text : "");
      if (parameter.array->filledCount)
        text += ", return " + parameter.array->filledCount->name.text;
      text += "]";
    }
    return text + " " + parameter.name.text;
  }
};

} // namespace

std::string shortName(const syntax::TypeName &type, const std::string &nameSpace) {
  syntax::TypeName name = type;
  const size_t dot = name.name.text.rfind('.');
  if (dot != std::string::npos && name.name.text.substr(0, dot) == nameSpace)
    name.name.text.erase(0, dot + 1);
  std::string text = name.name.text;
  for (const syntax::TypeName &argument : name.arguments)
    text += (&argument == name.arguments.data() ? "<" : ", ") + shortName(argument, nameSpace);
  return name.arguments.empty() ? text : text + ">";
}

std::string listed(const std::string &start, const std::vector<std::string> &items) {
  return joined(start, items, false);
}

std::string enclosed(const std::string &start, const std::vector<std::string> &items) {
  return joined(start, items, true) + ")";
}

void writeComment(Writer &writer, const std::string &text) {
  std::string line = text;
  for (char &c : line) {
    if (static_cast<unsigned char>(c) < ' ')
      c = ' ';
  }
  while (!line.empty() && line.back() == ' ')
    line.pop_back();
  writer.write("// %\n", line);
}

void writeMember(Writer &writer, const DeclaredMember &member, const std::string &nameSpace) {
  if (!member.comment.empty())
    writeComment(writer, member.comment);
  std::visit(MemberPrinter{writer, nameSpace}, member.member);
}

} // namespace bridgegen::metadata
