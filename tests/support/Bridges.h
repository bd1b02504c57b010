/// What cells of bridges have in common.
#ifndef WRT_TESTS_BRIDGES_H
#define WRT_TESTS_BRIDGES_H

#include "tests/support/Cell.h"
#include "tests/support/LogRecorder.h"
#include "tests/support/PlatformTrace.h"
#include "tests/support/ProbeObject.h"

#import <WRTObjcBridge/WRTUnknownBridge.h>

#import <objc/runtime.h>

#include <type_traits>

namespace wrt::test {

inline constexpr HRESULT kFailure = static_cast<HRESULT>(0x80070057);     // E_INVALIDARG
inline constexpr HRESULT kNoInterface = static_cast<HRESULT>(0x80004002); // E_NOINTERFACE

/// An error variable that holds something, as a caller's may from an earlier call.
inline NSError *staleError() { return [NSError errorWithDomain:@"stale" code:1 userInfo:nil]; }

/// A bridge of `type`, autoreleased, around a new object that lacks every interface.
inline id strangerOf(Class type) {
  ProbeObject &object = lasting<ProbeObject>();
  object.queryStatus = kNoInterface;
  return [type bridge:&object];
}

/// An array of strings, "0" to `count - 1`.
inline NSArray *numbered(NSUInteger count) {
  NSMutableArray *strings = [NSMutableArray array];
  for (NSUInteger i = 0; i < count; ++i)
    [strings addObject:[NSString stringWithFormat:@"%lu", (unsigned long)i]];
  return strings;
}

/// Sends a message whose selector is put together from a type's name.
template <class Result = void, class... Arguments>
Result send(id receiver, const std::string &selector, Arguments... arguments) {
  SEL name = sel_getUid(selector.c_str());
  using Function = Result (*)(id, SEL, Arguments...);
  auto *function = reinterpret_cast<Function>(
      reinterpret_cast<void *>(class_getMethodImplementation(object_getClass(receiver), name)));
  return function(receiver, name, arguments...);
}

/// The code of the error that `call` leaves in the empty variable that it is given. Nothing may
/// come with it.
template <class Call>
HRESULT failureOf(Call call) {
  NSError *error = nil;
  if constexpr (std::is_void_v<decltype(call(error))>)
    call(error);
  else
    EXPECT_FALSE(call(error)) << "a result of a failed call";
  return static_cast<HRESULT>([error code]);
}

/// Expects that the expression, which has the variable `failure` for its error, fails with `code`.
#define EXPECT_FAILS(code, ...)                                                                    \
  EXPECT_EQ(code, wrt::test::failureOf([&](NSError *&failure) { return __VA_ARGS__; }))

} // namespace wrt::test

#endif
