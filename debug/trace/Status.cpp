#include "debug/trace/Status.h"

#include <WRTStatus.h>
#include <charconv>
#include <cstdio>
#include <iterator>

namespace wrt::trace {

namespace {

struct Named {
  uint32_t value;
  const char *name;
};

constexpr Named kNames[] = {
#define WRT_STATUS(value, name, text) {value, #name},
#define WRT_UNNAMED_STATUS(value, text)
#include <WRTStatuses.inc>
};

} // namespace

std::string statusText(HRESULT status) {
  if (status == 0)
    return "ok";
  if (status == status::kFalse)
    return "S_FALSE";
  const auto value = static_cast<uint32_t>(status);
  char digits[16];
  std::snprintf(digits, sizeof digits, "0x%08X", value);
  for (const Named &each : kNames) {
    if (each.value == value)
      return std::string(each.name) + " (" + digits + ")";
  }
  return digits;
}

std::optional<HRESULT> statusNamed(const std::string &text) {
  for (const Named &each : kNames) {
    if (text == each.name)
      return static_cast<HRESULT>(each.value);
  }
  if (!text.starts_with("0x"))
    return {};
  uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data() + 2, text.data() + text.size(), value, 16);
  if (error != std::errc() || end != text.data() + text.size())
    return {};
  return static_cast<HRESULT>(value);
}

} // namespace wrt::trace
