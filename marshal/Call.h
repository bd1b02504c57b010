#ifndef WRT_MARSHAL_CALL_H
#define WRT_MARSHAL_CALL_H

#include "marshal/Member.h"

#include <type_traits>

namespace wrt {

/// The arguments of one call on their way: each parameter's crossing, first to last. They are made
/// in this order, which retains the objects among them, and destroyed in the opposite one.
template <class... Parameters>
struct Crossings {
  bool enter(PlainFrame &, const Facts<> &) { return true; }
  void leave(const Facts<> &) {}
  template <class Next>
  [[gnu::always_inline]] HRESULT pass(Next next) {
    return next();
  }
};

template <class Head, class... Tail>
struct Crossings<Head, Tail...> {
  typename Head::Crossing head;
  Crossings<Tail...> tail;

  [[gnu::always_inline]] explicit Crossings(typename Head::Type argument,
                                            typename Tail::Type... rest)
      : head{argument}, tail{rest...} {}

  /// Converts into WinRT, stopping at the first argument that cannot be converted.
  [[gnu::always_inline]] bool enter(auto &frame, const Facts<Head, Tail...> &facts) {
    return head.enter(frame, facts.head) && tail.enter(frame, facts.tail);
  }

  /// Converts what WinRT handed out through the parameters.
  [[gnu::always_inline]] void leave(const Facts<Head, Tail...> &facts) {
    head.leave(facts.head);
    tail.leave(facts.tail);
  }

  /// Calls `next` with the words that the parameters are for the interface function.
  template <class Next>
  [[gnu::always_inline]] HRESULT pass(Next next) {
    return head.words().pass([&](auto... words) __attribute__((always_inline)) {
      return tail.pass([&](auto... more)
                           __attribute__((always_inline)) { return next(words..., more...); });
    });
  }
};

/// A method's result, empty until there is one.
template <class T>
struct Outcome {
  T value{};

  void take(auto &returning, auto fact) { value = returning.leave(fact); }
  T get() const { return value; }
};

template <>
struct Outcome<void> {
  void take(auto &, auto) {}
  void get() const {}
};

/// Whether all kinds of a shape are content with a plain frame.
template <class Result, class... Parameters>
inline constexpr bool kIsPlain =
    requires(typename Result::Returning returning, PlainFrame &frame) { returning.enter(frame); } &&
    (requires(typename Parameters::Crossing crossing, typename Parameters::Fact fact,
              PlainFrame &frame) { crossing.enter(frame, fact); } &&
     ...);

/// The frame of a shape's calls.
template <class... Kinds>
using FrameFor = std::conditional_t<kIsPlain<Kinds...>, PlainFrame, Frame>;

/// A member's call, start to end: the pattern behind every generated method. `receiver` is the
/// bridge, or the class for static and factory members; the arguments are the method's own. The
/// result is owned by nobody (autoreleased), and empty when the call failed or could not be made.
template <class Result, class... Parameters>
[[gnu::noinline]] typename Result::Type
call(id receiver, const Member<Result(Parameters...)> &member,
     std::type_identity_t<typename Parameters::Type>... arguments, NSError **error) {
  static_assert(ResultKind<Result> && (ParameterKind<Parameters> && ...));
  static_assert(capacitiesAreTold<Parameters..., Result>());

  Crossings<Parameters...> crossings{arguments...};
  FrameFor<Result, Parameters...> frame(receiver, member.accessor);
  if (!frame.isOpen())
    return typename Result::Type();

  const auto &facts = member.facts;
  typename Result::Returning returning;
  Outcome<typename Result::Type> outcome;
  if (crossings.enter(frame, facts.tail) && returning.enter(frame)) {
    void *interface = frame.interface();
    const HRESULT status = crossings.pass([&](auto... words) __attribute__((always_inline)) {
      return returning.words().pass([&](auto... last) __attribute__((always_inline)) {
        using Function = HRESULT(WRT_ABI *)(void *, decltype(words)..., decltype(last)...);
        return (*static_cast<Function **>(interface))[member.slot](interface, words..., last...);
      });
    });
    if (frame.accept(status)) {
      outcome.take(returning, facts.head);
      crossings.leave(facts.tail);
    }
  }
  frame.tell(error);
  return outcome.get();
}

} // namespace wrt

#endif
