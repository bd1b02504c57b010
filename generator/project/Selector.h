#ifndef WRT_GENERATOR_SELECTOR_H
#define WRT_GENERATOR_SELECTOR_H

#include "generator/model/Type.h"

namespace bridgegen {

/// A parameter of a bridged member as the Objective-C method has it, without the final `error:`.
struct MethodParameter {
  const Parameter *parameter;
  Word word;         ///< the word of the WinRT parameter that it stands for
  unsigned pointers; ///< before the word's type; none before an `NSArray`

  const std::string &name() const { return parameter->nameOf(word); }
  /// Strings or objects in an `NSArray`, not their count.
  bool isObjectArray() const { return parameter->isObjectArray() && word == Word::Value; }
};

/// The Objective-C parameters of the member in order: arrays of values take two or three, object
/// arrays one or two, and what becomes the result none.
std::vector<MethodParameter> methodParameters(const Member &member);

/// `setTitleWithValue:error:`. Made of the WinRT names alone; see docs/declarations.md.
std::string selector(const Member &member);

/// The first words of the selector, up to its first parameter: `setTitle`.
std::string methodName(const Member &member);

/// Whether a method of this selector would be taken for one that returns a reference the caller
/// owns (`copy...`, `new...` and so on), which bridged members never do.
bool soundsLikeOwning(std::string_view selector);

} // namespace bridgegen

#endif
