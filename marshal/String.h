#ifndef WRT_MARSHAL_STRING_H
#define WRT_MARSHAL_STRING_H

#include "marshal/Member.h"
#include "marshal/Out.h"

#include <WRTBridge.h>
#include <WRTObjcBridge/WRTConversions.h>

namespace wrt {

/// Whether the call gives up the handle behind a string that it hands out once that is converted.
/// Callers on the platform's side may rely on its living on, so an option of the build says so.
#if defined(WRT_RELEASE_STRING_RESULTS)
inline constexpr bool kReleasesStringResults = true;
#else
inline constexpr bool kReleasesStringResults = false;
#endif

/// A string: `NSString` here, `HSTRING` there.
struct String {
  using Type = NSString *;
  using Fact = NoFact;

  /// Nil crosses as the null handle. A handle made for the call is released by a clean-up.
  class Crossing {
  public:
    explicit Crossing(NSString *argument) : argument_(argument) {}

    bool enter(Frame &frame, NoFact) {
      if (!argument_.get())
        return true;
      handle_ = WRTCreateHSTRINGFromNSString(argument_.get());
      if (handle_)
        frame.cleanups().addRelease(handle_);
      return true;
    }
    auto words() { return Words{handle_}; }
    void leave(NoFact) {}

  private:
    Retained<NSString *> argument_;
    HSTRING handle_ = nullptr;
  };

  /// The handle that WinRT returned is released if `kReleasesStringResults`.
  struct Returning {
    HSTRING handle = nullptr;

    bool enter(PlainFrame &) { return true; }
    auto words() { return Words{&handle}; }
    NSString *leave(NoFact) {
      NSString *string = WRTCreateNSStringFromHSTRING(handle);
      if constexpr (kReleasesStringResults)
        WRTHSTRINGRelease(handle);
      return string;
    }
  };
};

/// A string through an out-parameter: converted as a result is.
template <>
struct Out<String> {
  using Type = NSString **;
  using Fact = NoFact;

  struct Crossing {
    NSString **place;
    String::Returning returning{};

    bool enter(PlainFrame &, NoFact) { return true; }
    auto words() { return returning.words(); }
    void leave(NoFact fact) { *place = returning.leave(fact); }
  };
};

} // namespace wrt

#endif
