/// The types that a property value may have, and how it is kept.
#ifndef WRT_COMPONENTS_PROPERTY_TYPES_H
#define WRT_COMPONENTS_PROPERTY_TYPES_H

#include "platform/linux/components/generic/Types.h"

#include <abi/Windows.Foundation.abi.h>
#include <variant>
#include <vector>

namespace wrt::implement {

using types::DateTime;
using types::Point;
using types::Rect;
using types::Size;
using types::TimeSpan;

/// One value of a property type.
template <class T>
struct Scalar {
  using Type = T;
  Stored<T> value{};
};

/// An array of values of a property type.
template <class T>
struct Elements {
  using Type = T;
  std::vector<Stored<T>> values;
};

/// A value of a type that `PropertyType` does not name; it is kept elsewhere.
struct OtherType {};

/// What a property value holds. The first alternatives stand in the order of `PropertyType` from
/// Empty on, the arrays in the order of `PropertyType` from UInt8Array on.
template <class... Types>
using PropertyVariant =
    std::variant<std::monostate, Scalar<Types>..., OtherType, Elements<Types>...>;
using PropertyContent =
    PropertyVariant<UInt8, Int16, UInt16, Int32, UInt32, Int64, UInt64, Single, Double, Char16,
                    Boolean, String, Inspectable, DateTime, TimeSpan, Guid, Point, Size, Rect>;

/// The `PropertyType` of what is held.
constexpr int32_t propertyTypeOf(const PropertyContent &content) {
  const auto index = static_cast<int32_t>(content.index());
  return index <= WRTPropertyTypeOtherType
             ? index
             : WRTPropertyTypeUInt8Array + index - (WRTPropertyTypeOtherType + 1);
}

/// Whether `T` is a type that numbers are converted to and from; characters and booleans are none.
template <class T>
inline constexpr bool kIsNumeric =
    std::is_arithmetic_v<Stored<T>> && !std::is_same_v<T, Char16> && !std::is_same_v<T, Boolean>;

namespace detail {

template <class Held, class... Alternatives>
constexpr bool isAmong(const std::variant<Alternatives...> *) {
  return (std::is_same_v<Held, Alternatives> || ...);
}

} // namespace detail

/// Whether a property value can hold `T`; references to other types hold it themselves.
template <class T>
inline constexpr bool kIsPropertyType =
    detail::isAmong<Scalar<T>>(static_cast<const PropertyContent *>(nullptr));

} // namespace wrt::implement

#endif
