#ifndef WRT_GENERATOR_PASSING_H
#define WRT_GENERATOR_PASSING_H

#include "generator/forms/MarshalWord.h"
#include "generator/read/Syntax.h"

#include <optional>
#include <span>

namespace bridgegen {

/// Which of the words that a parameter takes: an array has a count, one that is filled a second.
enum class Word { Value, Count, FilledCount };

/// A word of WinRT's function, with the pointers before its type.
struct PassedWord {
  Word word;
  unsigned pointers;
};

/// What the method takes for strings and objects, which travel one by one or in `NSArray`s.
struct ObjectForm {
  /// What stands around the marshalling kind of a single one or of the elements, from outside.
  std::span<const MarshalWord *const> around = {};
  const char *arrayClass = nullptr; ///< null for a single one
  bool hasCapacity = false;         ///< the method takes how much room there is
  bool isResult = false;            ///< the method gives it back
};

/// A way of passing a parameter, a row of the table in docs/declarations.md.
struct Passing {
  // How it is declared.
  bool isArray = false;
  bool isReturn = false;
  bool isOut = false;
  bool isFill = false;
  syntax::Filled filled = syntax::Filled::Nowhere;

  /// What WinRT's function takes, in order; so does the method when the elements are values.
  std::span<const PassedWord> words;
  /// Nothing for a way that strings and objects cannot go.
  std::optional<ObjectForm> objects = std::nullopt;
  bool takesDelegates = false;

  /// WinRT gives it back where a function's result stands.
  bool takesFunctionResult() const { return isReturn || filled == syntax::Filled::Return; }
};

/// An in-parameter that is no array.
extern const Passing &kPassedIn;

/// The way that a parameter is declared to go, or null when there is none of this form.
const Passing *passingOf(const syntax::Parameter &parameter);

} // namespace bridgegen

#endif
