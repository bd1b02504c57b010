#ifndef WRT_MARSHAL_KIND_H
#define WRT_MARSHAL_KIND_H

#include "marshal/Frame.h"

#include <concepts>

namespace wrt {

/// The fact of a kind that needs none.
struct NoFact {};

/// What a crossing is for the interface function: no word, one, or two.
template <class... T>
struct Words;

template <class... T>
Words(T...) -> Words<T...>;

template <>
struct Words<> {
  template <class Next>
  [[gnu::always_inline]] HRESULT pass(Next next) const {
    return next();
  }
};

template <class T>
struct Words<T> {
  T word;

  template <class Next>
  [[gnu::always_inline]] HRESULT pass(Next next) const {
    return next(word);
  }
};

template <class T, class U>
struct Words<T, U> {
  T first;
  U second;

  template <class Next>
  [[gnu::always_inline]] HRESULT pass(Next next) const {
    return next(first, second);
  }
};

/// How one parameter crosses. `Type` is what the method takes, `Fact` what a member must tell. A
/// `Crossing` is made from the argument, which it retains if that is an object; `enter` converts
/// in, registers clean-ups, and is false once it has refused; `words` are what the interface
/// function is handed; `leave` converts out, on success.
template <class Kind>
concept ParameterKind = requires(typename Kind::Type argument, typename Kind::Fact fact,
                                 typename Kind::Crossing crossing, Frame &frame) {
  typename Kind::Crossing{argument};
  { crossing.enter(frame, fact) } -> std::same_as<bool>;
  crossing.words();
  { crossing.leave(fact) } -> std::same_as<void>;
};

/// How a result crosses: as a parameter does, but `Returning` is made of nothing, learns its fact
/// when it leaves, and leaves with the method's result.
template <class Kind>
concept ResultKind =
    requires(typename Kind::Fact fact, typename Kind::Returning returning, Frame &frame) {
      typename Kind::Returning{};
      { returning.enter(frame) } -> std::same_as<bool>;
      returning.words();
      { returning.leave(fact) } -> std::convertible_to<typename Kind::Type>;
    };

/// A parameter that says, through the frame, how many elements an array behind it is to have.
template <class Kind>
concept TellsCapacity = requires { Kind::kTellsCapacity; };

/// An array that WinRT fills, which needs to be told by a parameter before it.
template <class Kind>
concept NeedsCapacity = requires { Kind::kNeedsCapacity; };

/// Whether every array of a member is told its capacity by the parameter before it, in the order in
/// which `kinds` enter: the parameters, then the result.
template <class... Kinds>
consteval bool capacitiesAreTold() {
  bool told = false, fine = true;
  ((fine = fine && (told || !NeedsCapacity<Kinds>), told = told || TellsCapacity<Kinds>), ...);
  return fine;
}

} // namespace wrt

#endif
