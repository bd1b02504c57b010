// Numbers of property values as other numbers, against what the type's bounds say of them.

#include "platform/linux/components/values/NumericConversion.h"

#include <cstdlib>
#include <cstring>

namespace {

using namespace wrt::implement;

template <class To, class From>
void check(From from) {
  To to{};
  const HRESULT status = convertNumber(from, &to);
  // As wide as both: 64 bits of precision.
  const auto exact = static_cast<long double>(from);
  if constexpr (std::is_integral_v<To>) {
    const long double number = std::nearbyint(exact);
    const bool fits = number >= static_cast<long double>(std::numeric_limits<To>::min()) &&
                      number <= static_cast<long double>(std::numeric_limits<To>::max());
    if (fits != (status == wrt::status::kOk) || (fits && static_cast<long double>(to) != number) ||
        (!fits && (status != kOverflow || to != 0)))
      std::abort();
  } else if (std::isfinite(exact)) {
    const bool fits = std::abs(exact) <= static_cast<long double>(std::numeric_limits<To>::max());
    if (fits != (status == wrt::status::kOk) || (fits && to != static_cast<To>(from)))
      std::abort();
  } else if (status != wrt::status::kOk || std::isnan(to) != std::isnan(exact)) {
    std::abort();
  }
}

template <class... Numbers>
struct Types {
  template <class From>
  static void checkFrom(const uint8_t *data) {
    From from{};
    std::memcpy(&from, data, sizeof from);
    (check<Numbers>(from), ...);
  }
  static void checkAll(const uint8_t *data) { (checkFrom<Numbers>(data), ...); }
};
using Numbers =
    Types<uint8_t, int16_t, uint16_t, int32_t, uint32_t, int64_t, uint64_t, float, double>;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  for (; size >= sizeof(double); data += sizeof(double), size -= sizeof(double))
    Numbers::checkAll(data);
  return 0;
}
