#ifndef WRT_MARSHAL_SHIELD_H
#define WRT_MARSHAL_SHIELD_H

#include <WRTObjcBridge/WRTTypes.h>
#include <WRTStatus.h>

#import <Foundation/Foundation.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace wrt {

#if defined(__EXCEPTIONS)
/// Logs that the block behind an adapter raised.
void logRaised(const char *adapter, id exception);
#endif

/// Lets `call` call a block of the application's for WinRT. What that raises must not unwind
/// through a component: it is logged under the adapter's name and answered with `E_FAIL`. Where the
/// library knows of no exceptions, this is the call and nothing else.
template <class Call>
HRESULT shielded([[maybe_unused]] const char *adapter, Call call) {
#if defined(__EXCEPTIONS)
  @try {
    return call();
  } @catch (id exception) {
    logRaised(adapter, exception);
    return status::kFail;
  }
#else
  return call();
#endif
}

namespace detail {

template <auto factory>
consteval auto spellAdapterName() {
  std::string_view name = __PRETTY_FUNCTION__; // "... [factory = &WRTFooHandlerFromBlock]"
  name.remove_prefix(name.rfind('&') + 1);
  name.remove_suffix(1);
  constexpr std::string_view kSuffix = "_block_invoke";
  std::array<char, sizeof __PRETTY_FUNCTION__ + kSuffix.size()> text{};
  std::ranges::copy(kSuffix, std::ranges::copy(name, text.begin()).out);
  return text;
}

} // namespace detail

/// The name of the adapter block that `factory` makes a delegate of, as in
/// `WRTFooHandlerFromBlock_block_invoke`.
template <auto factory>
inline constexpr auto kAdapterName = detail::spellAdapterName<factory>();

} // namespace wrt

#endif
