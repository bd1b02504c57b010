#ifndef WRT_TESTS_ANSWERS_H
#define WRT_TESTS_ANSWERS_H

#include "tests/component/Script.h"

#include <WRTBridge.h>
#include <abi/test.abi.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace wrt::test {

/// A value as crossings tell it.
std::string describe(abi::TestInterface *object);
std::string describe(HSTRING string);
std::string describe(int32_t value);
std::string describe(const WRTTestStruct &value);
std::string describeStatus(HRESULT status);

/// Elements as the script describes them; the pointers only say of which type.
int32_t makeElement(int32_t index, int32_t *);
WRTTestStruct makeElement(int32_t index, WRTTestStruct *);
HSTRING makeElement(int32_t index, HSTRING *);
abi::TestInterface *makeElement(int32_t index, abi::TestInterface **);

/// Results as the script describes them, likewise.
inline int32_t makeResult(int32_t *) { return script().integer; }
inline WRTTestStruct makeResult(WRTTestStruct *) { return script().structure; }
inline abi::TestInterface *makeResult(abi::TestInterface **place) { return makeElement(0, place); }
HSTRING makeResult(HSTRING *);

/// What a member does to its caller first: what the script says, once.
inline void meddle() {
  if (const auto act = std::exchange(script().meddle, nullptr))
    act();
}

/// What a member does that only takes something: it is recorded, and the status is the script's.
inline HRESULT receive(std::string text) {
  recordCrossing(std::move(text));
  return script().status;
}

// What a member does, by its parameters.
inline HRESULT answer(const char *member) { return receive(member); }

template <class T>
HRESULT answer(const char *member, T value) {
  return receive(std::string(member) + " " + describe(value));
}

template <class T>
HRESULT answer(const char *member, int32_t count, T *block) {
  std::string text = std::string(member) + " [";
  for (int32_t i = 0; i < count; ++i)
    text += (i ? ", " : "") + describe(block[i]);
  return receive(text + "]");
}

/// Whether the member is to hand out anything; poisons its out-values first if it is not.
template <class... T>
bool handsOut(const std::string &member, T *...places) {
  recordCrossing(member);
  if (script().status < 0 && script().poisons)
    (std::memset(static_cast<void *>(places), 0xCC, sizeof *places), ...);
  return script().status >= 0;
}

/// A result, where one of that type can be made.
template <class T>
  requires requires(T *place) { makeResult(place); }
HRESULT answer(const char *member, T *place) {
  if (handsOut(member, place))
    *place = makeResult(place);
  return script().status;
}

/// An array that the component allocates and the caller owns.
template <class T>
HRESULT answer(const char *member, int32_t *count, T **block) {
  if (handsOut(member, count, block)) {
    *count = script().count;
    *block = static_cast<T *>(WRTTaskMemAlloc(static_cast<size_t>(*count) * sizeof(T)));
    for (int32_t i = 0; i < *count; ++i)
      (*block)[i] = makeElement(i, *block);
  }
  return script().status;
}

/// An array of the caller's that the component fills.
template <class T>
HRESULT answer(const char *member, int32_t size, int32_t *count, T *block) {
  if (handsOut(std::string(member) + " " + std::to_string(size), count)) {
    *count = std::min(size, script().count);
    for (int32_t i = 0; i < *count; ++i)
      block[i] = makeElement(i, block);
  }
  return script().status;
}

} // namespace wrt::test

#endif
