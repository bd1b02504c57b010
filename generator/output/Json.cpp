#include "generator/output/Json.h"

namespace bridgegen::json {

std::string string(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '\n')
      result += "\\n";
    else if (c == '"' || c == '\\')
      result += std::string("\\") + c;
    else
      result += c;
  }
  return result + "\"";
}

std::string stringOrNone(std::string_view text) { return text.empty() ? "" : string(text); }

std::string flag(bool isSet) { return isSet ? "true" : ""; }

std::string array(const std::vector<std::string> &elements) {
  std::string text;
  for (const std::string &element : elements)
    text += (text.empty() ? "[\n" : ",\n") + element;
  return text.empty() ? "" : text + "]";
}

std::string object(std::initializer_list<std::pair<std::string_view, std::string>> fields) {
  std::string text = "{";
  for (const auto &[name, value] : fields) {
    if (!value.empty())
      text += (text.size() == 1 ? "" : ", ") + string(name) + ": " + value;
  }
  return text + "}";
}

} // namespace bridgegen::json
