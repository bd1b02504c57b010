#ifndef WRT_GENERATOR_TARGET_H
#define WRT_GENERATOR_TARGET_H

#include <string>

namespace bridgegen {

/// The library that bridges are made for: the product, or an add-on beside it.
struct Target {
  static constexpr const char *kProduct = "WRTObjcBridge";

  std::string name = kProduct; ///< also the folder of its public headers
  std::string prefix;          ///< before the names of its C structures and Objective-C classes

  bool isAddOn() const { return name != kProduct; }
  /// The name with `_` for what cannot stand in identifiers.
  std::string identifier() const {
    std::string text = name;
    for (char &c : text)
      c = c == '.' || c == '-' ? '_' : c;
    return text;
  }
};

} // namespace bridgegen

#endif
