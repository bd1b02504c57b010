#include "tests/support/PlatformTrace.h"

#include <WRTBridge.h>

#include <dlfcn.h>

#include <array>
#include <new>
#include <utility>

namespace wrt::test {

namespace {

thread_local PlatformTrace *active = nullptr;
/// Counts down to the call that fails.
thread_local int duplicatesUntilFailure = 0;
thread_local HRESULT duplicateFailure = 0;
thread_local HRESULT referenceFailure = 0;

thread_local std::array<bool, 4> lacks{};
Striker striker = nullptr;

/// Whether the call of `function`, which returns to `caller`, is to answer null.
bool lacksNext(Lack lack, const char *function, const void *caller) {
  return std::exchange(lacks[static_cast<size_t>(lack)], false) ||
         strikeOf(function, caller) != Strike::None;
}

/// The platform's own function behind the one that the test program defines.
template <class Function>
Function *next(const char *name) {
  return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

/// Where the function that calls this one returns to.
#define WRT_CALLER __builtin_return_address(0)
/// The platform's own function of that name, looked up once.
#define WRT_NEXT(function)                                                                         \
  ([] {                                                                                            \
    static auto *const forward = next<decltype(function)>(#function);                              \
    return forward;                                                                                \
  }())
/// Has the platform carry a call out, or answers it with the status of a strike.
#define WRT_CARRY_OUT(function, result, ...)                                                       \
  carryOut(WRT_NEXT(function), #function, WRT_CALLER, result, __VA_ARGS__)

template <class Function, class Result, class... Arguments>
HRESULT carryOut(Function *forward, const char *function, const void *caller, Result *result,
                 Arguments... arguments) {
  const Strike strike = strikeOf(function, caller);
  if (strike == Strike::None)
    return forward(arguments..., result);
  // Nobody may look at what comes with a failure.
  *result = strike == Strike::Failure ? reinterpret_cast<Result>(0xCCCCCCCC) : nullptr;
  return strike == Strike::Failure ? kStruck : 0;
}

void record(const char *function, const void *argument, size_t size = 0) {
  if (active)
    active->add({function, argument, size});
}

} // namespace

PlatformTrace::PlatformTrace() { active = this; }
PlatformTrace::~PlatformTrace() { active = nullptr; }

void failNextDuplicate(HRESULT status, int after) {
  duplicateFailure = status;
  duplicatesUntilFailure = after;
}

void setStriker(Striker newStriker) { striker = newStriker; }
Strike strikeOf(const char *function, const void *caller) {
  return striker ? striker(function, caller) : Strike::None;
}

void failNext(Lack lack) { lacks[static_cast<size_t>(lack)] = true; }
void failNextReference(HRESULT status) { referenceFailure = status; }

std::string PlatformTrace::names() const {
  std::string names;
  for (const PlatformCall &call : calls_)
    names += (names.empty() ? "" : " ") + call.function;
  return names;
}

} // namespace wrt::test

using namespace wrt::test;

#if !__has_feature(thread_sanitizer)
void *operator new(size_t size, const std::nothrow_t &tag) noexcept {
  static auto *forward = next<void *(size_t, const std::nothrow_t &)>("_ZnwmRKSt9nothrow_t");
  return lacksNext(Lack::Object, "operator new", WRT_CALLER) ? nullptr : forward(size, tag);
}
#endif

extern "C" {

HRESULT WRTHSTRINGRelease(HSTRING string) {
  record(__func__, string);
  return WRT_NEXT(WRTHSTRINGRelease)(string);
}

HRESULT WRTHSTRINGDuplicate(HSTRING string, HSTRING *copy) {
  if (duplicateFailure < 0 && duplicatesUntilFailure-- == 0)
    return std::exchange(duplicateFailure, 0);
  return WRT_CARRY_OUT(WRTHSTRINGDuplicate, copy, string);
}

HRESULT WRTHSTRINGCreateReference(const char16_t *text, uint32_t length, WRTHSTRINGHeader *header,
                                  HSTRING *string) {
  const HRESULT failure = std::exchange(referenceFailure, 0);
  return failure < 0 ? failure
                     : WRT_CARRY_OUT(WRTHSTRINGCreateReference, string, text, length, header);
}

void *WRTHSTRINGToCFString(HSTRING string) {
  record(__func__, string);
  return lacksNext(Lack::String, __func__, WRT_CALLER) ? nullptr
                                                       : WRT_NEXT(WRTHSTRINGToCFString)(string);
}

uint32_t WRTIUnknownRelease(void *object) {
  record(__func__, object);
  return WRT_NEXT(WRTIUnknownRelease)(object);
}

void WRTIUnknownSafeRelease(void *object) {
  record(__func__, object);
  WRT_NEXT(WRTIUnknownSafeRelease)(object);
}

void *WRTTaskMemAlloc(size_t size) {
  // A block of no bytes can always be had.
  const bool isLacking = size > 0 && lacksNext(Lack::TaskMemory, __func__, WRT_CALLER);
  void *block = isLacking ? nullptr : WRT_NEXT(WRTTaskMemAlloc)(size);
  record(__func__, block, size);
  return block;
}

void WRTTaskMemFree(void *block) {
  record(__func__, block);
  WRT_NEXT(WRTTaskMemFree)(block);
}

HRESULT WRTGetActivationFactory(HSTRING className, const GUID *iid, void **factory) {
  record(__func__, iid);
  const HRESULT status = WRT_CARRY_OUT(WRTGetActivationFactory, factory, className, iid);
  if (status < 0)
    *factory = reinterpret_cast<void *>(0xCCCCCCCC); // nobody may look at it
  return status;
}

void *WRTActivateInstance(const char16_t *className) {
  const bool isStruck = strikeOf(__func__, WRT_CALLER) != Strike::None;
  return isStruck ? nullptr : WRT_NEXT(WRTActivateInstance)(className);
}

HRESULT WRTIUnknownQueryInterface(void *object, const GUID *iid, void **result) {
  return WRT_CARRY_OUT(WRTIUnknownQueryInterface, result, object, iid);
}

HRESULT WRTIBufferByteAccessBuffer(void *byteAccess, uint8_t **bytes) {
  return WRT_CARRY_OUT(WRTIBufferByteAccessBuffer, bytes, byteAccess);
}

void *WRTHSTRINGFromCFString(void *string) {
  const bool isStruck = strikeOf(__func__, WRT_CALLER) != Strike::None;
  return isStruck ? nullptr : WRT_NEXT(WRTHSTRINGFromCFString)(string);
}

void *__zorvex_dispatch_semaphore_create(long value) {
  const bool isLacking = lacksNext(Lack::Semaphore, __func__, WRT_CALLER);
  return isLacking ? nullptr : WRT_NEXT(__zorvex_dispatch_semaphore_create)(value);
}

} // extern "C"
