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

template <class From>
void checkAll(const uint8_t *data) {
  From from{};
  std::memcpy(&from, data, sizeof from);
  check<uint8_t>(from);
  check<int16_t>(from);
  check<uint16_t>(from);
  check<int32_t>(from);
  check<uint32_t>(from);
  check<int64_t>(from);
  check<uint64_t>(from);
  check<float>(from);
  check<double>(from);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  for (; size >= sizeof(double); data += sizeof(double), size -= sizeof(double)) {
    checkAll<uint8_t>(data);
    checkAll<int16_t>(data);
    checkAll<uint32_t>(data);
    checkAll<int64_t>(data);
    checkAll<uint64_t>(data);
    checkAll<float>(data);
    checkAll<double>(data);
  }
  return 0;
}
