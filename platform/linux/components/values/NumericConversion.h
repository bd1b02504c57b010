#ifndef WRT_COMPONENTS_NUMERIC_CONVERSION_H
#define WRT_COMPONENTS_NUMERIC_CONVERSION_H

#include <WRTStatus.h>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace wrt::implement {

/// DISP_E_OVERFLOW: a number is beyond the type that is asked for (Windows 10 SDK 10.0.16299.0,
/// winerror.h).
inline constexpr HRESULT kOverflow = static_cast<HRESULT>(0x8002000A);
/// TYPE_E_TYPEMISMATCH: a value has another type than is asked for.
inline constexpr HRESULT kTypeMismatch = static_cast<HRESULT>(0x80028CA0);

/// A number of a property value as another type: `*to` is written on success. Fractions are rounded
/// to the nearest integer, halves to the even one; what is beyond the range is `kOverflow`.
template <class To, class From>
HRESULT convertNumber(From from, To *to) {
  if constexpr (std::is_integral_v<To> && std::is_integral_v<From>) {
    if (!std::in_range<To>(from))
      return kOverflow;
  } else if constexpr (std::is_integral_v<To>) {
    // Both bounds are powers of two, or 0, and so exact; the upper one is the first that is too
    // big.
    const double number = std::nearbyint(static_cast<double>(from));
    constexpr auto kLower = static_cast<double>(std::numeric_limits<To>::min());
    const double upper = std::ldexp(1.0, std::numeric_limits<To>::digits);
    if (!(number >= kLower && number < upper))
      return kOverflow;
    *to = static_cast<To>(number);
    return status::kOk;
  } else if constexpr (std::is_floating_point_v<From>) {
    // Infinities and NaN are values like others.
    if (std::isfinite(from) &&
        std::abs(static_cast<double>(from)) > static_cast<double>(std::numeric_limits<To>::max()))
      return kOverflow;
  }
  *to = static_cast<To>(from);
  return status::kOk;
}

} // namespace wrt::implement

#endif
