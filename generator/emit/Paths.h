#ifndef WRT_GENERATOR_PATHS_H
#define WRT_GENERATOR_PATHS_H

#include <string>

/// Where outputs go, relative to the output folder. cmake/BridgeGen.cmake knows the same names.
namespace bridgegen::paths {

inline std::string typesHeader(const std::string &unit) {
  return "include/WRTObjcBridge/types/" + unit + ".h";
}
inline std::string publicHeader(const std::string &unit) {
  return "include/WRTObjcBridge/" + unit + ".h";
}
inline std::string abiHeader(const std::string &unit) { return "abi/" + unit + ".abi.h"; }
inline std::string membersHeader(const std::string &unit) {
  return "members/" + unit + ".members.h";
}
inline std::string classes(const std::string &unit) { return "classes/" + unit + ".mm"; }
inline std::string platformHeader(const std::string &unit) {
  return "platform/" + unit + ".platform.h";
}
inline std::string delegateFactories(const std::string &unit) {
  return "platform/" + unit + ".delegates.mm";
}
inline std::string classNames(const std::string &unit) { return "platform/" + unit + ".names.cpp"; }

inline constexpr const char *kUmbrella = "include/WRTObjcBridge/WRTObjcBridge.h";
inline constexpr const char *kBridgeExports = "platform/bridge.exports";
inline constexpr const char *kCatalogue = "catalogue.tsv";
inline constexpr const char *kDigest = "surface.digest";

} // namespace bridgegen::paths

#endif
