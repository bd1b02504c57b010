#ifndef WRT_GENERATOR_JSON_H
#define WRT_GENERATOR_JSON_H

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Values of JSON as texts, made from the inside to the outside. No value at all is an empty text.
namespace bridgegen::json {

std::string string(std::string_view text);
/// The same, or no value if the text is empty.
std::string stringOrNone(std::string_view text);
/// No value for false.
std::string flag(bool isSet);
/// An element a line. No value if there are none.
std::string array(const std::vector<std::string> &elements);
/// Fields without a value are left out.
std::string object(std::initializer_list<std::pair<std::string_view, std::string>> fields);

} // namespace bridgegen::json

#endif
