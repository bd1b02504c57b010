#ifndef WRT_MARSHAL_MEMBER_H
#define WRT_MARSHAL_MEMBER_H

#include "marshal/Kind.h"

namespace wrt {

/// What the kinds of a member need to know, in the order result, first parameter, ... last
/// parameter. Kinds without a fact take no room and no argument.
template <class... Kinds>
struct Facts {};

template <class Head, class... Tail>
struct Facts<Head, Tail...> {
  typename Head::Fact head;
  Facts<Tail...> tail;

  constexpr explicit Facts(typename Head::Fact fact, auto... rest) : head(fact), tail{rest...} {}
};

template <class Head, class... Tail>
  requires __is_same
(typename Head::Fact, NoFact) struct Facts<Head, Tail...> {
  static constexpr NoFact head{};
  [[no_unique_address]] Facts<Tail...> tail;

  constexpr explicit Facts(auto... rest) : tail{rest...} {}
};

/// What tells a member from the others of its shape `Result(Parameters...)`: the accessor of the
/// interface that declares it, the slot it has there, and the facts of its kinds (the class of a
/// result, the accessor of an argument, the factory of a delegate). A constant that is read at run
/// time, so that all members of a shape share their code.
template <class Shape>
struct Member;

template <class Result, class... Parameters>
struct Member<Result(Parameters...)> {
  Accessor accessor;
  uint32_t slot;
  [[no_unique_address]] Facts<Result, Parameters...> facts;

  constexpr Member(Accessor accessor, uint32_t slot, auto... facts)
      : accessor(accessor), slot(slot), facts{facts...} {}
};

} // namespace wrt

#endif
