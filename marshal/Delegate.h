#ifndef WRT_MARSHAL_DELEGATE_H
#define WRT_MARSHAL_DELEGATE_H

#include "marshal/Member.h"

namespace wrt {

/// Makes the WinRT delegate (+1) that calls `handler`, the caller's block (borrowed), through an
/// adapter block, which it leaves on the heap in `adapter`.
using DelegateMaker = void *(*)(id handler, Retained<> &adapter);

/// A delegate argument: a block here. Nil is not tested for. The fact is the delegate's maker.
struct Delegate {
  using Type = id;
  using Fact = DelegateMaker;

  class Crossing {
  public:
    explicit Crossing(id handler) : handler_(handler) {}

    bool enter(Frame &frame, DelegateMaker maker);
    auto words() { return Words{delegate_}; }
    void leave(DelegateMaker) {}

  private:
    Retained<> handler_;
    void *delegate_ = nullptr;
  };
};

} // namespace wrt

#endif
