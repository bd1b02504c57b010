#ifndef WRT_TESTS_CHECK_H
#define WRT_TESTS_CHECK_H

#include "platform/arm/doubles/Host.h"
#include "platform/arm/doubles/bridge/Bridge.h"
#include "platform/arm/doubles/zorvex/Runtime.h"

#include <WRTAbi.h>

/// Records one check under its own text.
#define CHECK(...) hostReport(#__VA_ARGS__, (__VA_ARGS__) ? 1 : 0)

extern "C" {
// What the doubles tell beside the platform's own functions (doubles/log, doubles/bridge).
int testLogCount(void);
int testLogLevel(void);
const char *testLogFunction(void);
const char *testLastFactory(void);
HSTRING testMakeString(const char16_t *text, uint32_t length);
const char16_t *testStringText(HSTRING handle, uint32_t *length);
}

namespace wrt::test {

constexpr HRESULT kFail = static_cast<HRESULT>(0x80004005);
constexpr HRESULT kNoInterface = static_cast<HRESULT>(0x80004002);

/// Whether a string handle has the text.
inline bool hasText(HSTRING handle, const char16_t *expected) {
  uint32_t length = 0;
  const char16_t *text = testStringText(handle, &length);
  for (uint32_t i = 0; i < length; ++i)
    if (text[i] != expected[i])
      return false;
  return expected[length] == 0;
}

inline bool same(const char *left, const char *right) {
  while (*left && *left == *right)
    ++left, ++right;
  return *left == *right;
}

} // namespace wrt::test

#endif
