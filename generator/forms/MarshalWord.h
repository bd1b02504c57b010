#ifndef WRT_GENERATOR_MARSHAL_WORD_H
#define WRT_GENERATOR_MARSHAL_WORD_H

#include <optional>
#include <string_view>

namespace bridgegen {

/// What a marshalling kind has to be told at run time.
enum class FactKind {
  Accessor, ///< the function that asks an argument for the type's interface
  Class,    ///< the class structure of the type's bridge
  Maker     ///< the function that makes a delegate of the type
};

/// A word that the types of members are made of, as marshal/ has it.
struct MarshalWord {
  std::string_view name;
  std::string_view header; ///< that brings it: a kind's header has what every kind needs
  /// What a kind that begins with the word is told of objects and delegates.
  std::optional<FactKind> fact = std::nullopt;
};

inline constexpr MarshalWord kMarshalWords[] = {
    {"Member", "marshal/Value.h"},
    {"Void", "marshal/Value.h"},
    {"Value", "marshal/Value.h"},
    {"Boolean", "marshal/Value.h"},
    {"Pointer", "marshal/Value.h"},
    {"String", "marshal/String.h"},
    {"Object", "marshal/Object.h", FactKind::Accessor},
    {"Interface", "marshal/Object.h", FactKind::Class},
    {"RuntimeClass", "marshal/Object.h", FactKind::Class},
    {"Out", "marshal/Object.h", FactKind::Class},
    {"Array", "marshal/Array.h", FactKind::Accessor},
    {"StringElements", "marshal/Array.h"},
    {"ObjectElements", "marshal/Array.h"},
    {"ReturnedArray", "marshal/Array.h", FactKind::Class},
    {"Capacity", "marshal/FilledArray.h"},
    {"Fill", "marshal/FilledArray.h", FactKind::Class},
    {"ReturnedFill", "marshal/FilledArray.h", FactKind::Class},
    {"BulkRead", "marshal/FilledArray.h", FactKind::Class},
    {"Delegate", "marshal/Delegate.h", FactKind::Maker},
};

/// Not defined: calling it stops a compilation, and the message shows the name.
void noSuchWordInMarshal();

/// The word of that name; another name does not compile.
consteval const MarshalWord &marshalWord(std::string_view name) {
  for (const MarshalWord &word : kMarshalWords) {
    if (word.name == name)
      return word;
  }
  noSuchWordInMarshal();
  return kMarshalWords[0];
}

} // namespace bridgegen

#endif
