#ifndef WRT_GENERATOR_SAFE_NAME_H
#define WRT_GENERATOR_SAFE_NAME_H

#include <string>

namespace bridgegen {

/// `name` as a variable of C, C++ and Objective-C: a word that means something there gets an
/// underscore behind it. Selectors keep the name itself.
std::string safeName(const std::string &name);

} // namespace bridgegen

#endif
