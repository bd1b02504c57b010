#include "generator/project/SafeName.h"

#include <set>
#include <string_view>

namespace bridgegen {

std::string safeName(const std::string &name) {
  static const std::set<std::string_view> kWords{
      // C and C++.
      "alignas", "alignof", "and", "asm", "auto", "bool", "break", "case", "catch", "char", "class",
      "concept", "const", "constexpr", "continue", "decltype", "default", "delete", "do", "double",
      "else", "enum", "explicit", "export", "extern", "false", "float", "for", "friend", "goto",
      "if", "inline", "int", "long", "mutable", "namespace", "new", "not", "operator", "or",
      "private", "protected", "public", "register", "requires", "return", "short", "signed",
      "sizeof", "static", "struct", "switch", "template", "this", "throw", "true", "try", "typedef",
      "typeid", "typename", "union", "unsigned", "using", "virtual", "void", "volatile", "while",
      "xor",
      // Objective-C, and the names that every method has.
      "error", "id", "in", "inout", "nil", "out", "self", "super", "_cmd",
      // Macros of the Windows headers.
      "interface"};
  return kWords.contains(name) ? name + "_" : name;
}

} // namespace bridgegen
