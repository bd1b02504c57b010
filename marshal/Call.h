#ifndef WRT_MARSHAL_CALL_H
#define WRT_MARSHAL_CALL_H

#include "marshal/Member.h"

#include <type_traits>

namespace wrt {

/// The arguments of one call on their way: each parameter's crossing, first to last. They are made
/// in this order, which retains the objects among them, and destroyed in the opposite one.
template <class... Parameters> struct Crossings {
  bool enter(Frame &, const Facts<> &) { return true; }
  void leave(const Facts<> &) {}
  template <class Next> HRESULT pass(Next next) { return next(); }
};

template <class Head, class... Tail> struct Crossings<Head, Tail...> {
  typename Head::Crossing head;
  Crossings<Tail...> tail;

  explicit Crossings(typename Head::Type argument, typename Tail::Type... rest)
      : head{argument}, tail{rest...} {}

  /// Converts into WinRT, stopping at the first argument that cannot be converted.
  bool enter(Frame &frame, const Facts<Head, Tail...> &facts) {
    return head.enter(frame, facts.head) && tail.enter(frame, facts.tail);
  }

  /// Converts what WinRT handed out through the parameters.
  void leave(const Facts<Head, Tail...> &facts) {
    head.leave(facts.head);
    tail.leave(facts.tail);
  }

  /// Calls `next` with the words that the parameters are for the interface function.
  template <class Next> HRESULT pass(Next next) {
    return head.pass([&](auto... words) {
      return tail.pass([&](auto... more) { return next(words..., more...); });
    });
  }
};

/// A member's call, start to end: the pattern behind every generated method. `receiver` is the
/// bridge, or the class for static and factory members; the arguments are the method's own. The
/// result is owned by nobody (autoreleased), and empty when the call failed or could not be made.
template <class Result, class... Parameters>
[[gnu::noinline]] typename Result::Type
call(id receiver, const Member<Result(Parameters...)> &member,
     std::type_identity_t<typename Parameters::Type>... arguments, NSError **error) {
  Crossings<Parameters...> crossings{arguments...};
  Frame frame(receiver, member.accessor);
  if (!frame.isOpen())
    return typename Result::Type();

  const auto &facts = member.facts;
  typename Result::Returning returning;
  typename Result::Type result{};
  if (crossings.enter(frame, facts.tail) && returning.enter(frame)) {
    void *interface = frame.interface();
    const HRESULT status = crossings.pass([&](auto... words) {
      return returning.pass([&](auto... last) {
        using Function = HRESULT(WRT_ABI *)(void *, decltype(words)..., decltype(last)...);
        return (*static_cast<Function **>(interface))[member.slot](interface, words..., last...);
      });
    });
    if (frame.accept(status)) {
      result = returning.leave(facts.head);
      crossings.leave(facts.tail);
    }
  }
  frame.close(error);
  return result;
}

} // namespace wrt

#endif
