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

/// Whether that call has been answered without being carried out: with `*status` and a result.
template <class Result>
bool answered(const char *function, const void *caller, HRESULT *status, Result *result) {
  const Strike strike = strikeOf(function, caller);
  *status = strike == Strike::Failure ? kStruck : 0;
  // Nobody may look at what comes with a failure.
  *result = strike == Strike::Failure ? reinterpret_cast<Result>(0xCCCCCCCC) : nullptr;
  return strike != Strike::None;
}

/// Where the function that calls this one returns to.
#define WRT_CALLER __builtin_return_address(0)

void record(const char *function, const void *argument, size_t size = 0) {
  if (active)
    active->add({function, argument, size});
}

/// The platform's own function behind the one that the test program defines.
template <class Function>
Function *next(const char *name) {
  return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
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
  static auto *forward = next<HRESULT(HSTRING)>("WRTHSTRINGRelease");
  record("WRTHSTRINGRelease", string);
  return forward(string);
}

HRESULT WRTHSTRINGDuplicate(HSTRING string, HSTRING *copy) {
  static auto *forward = next<HRESULT(HSTRING, HSTRING *)>("WRTHSTRINGDuplicate");
  if (HRESULT status; answered("WRTHSTRINGDuplicate", WRT_CALLER, &status, copy))
    return status;
  if (duplicateFailure < 0 && duplicatesUntilFailure-- > 0)
    return forward(string, copy);
  const HRESULT failure = std::exchange(duplicateFailure, 0);
  return failure < 0 ? failure : forward(string, copy);
}

HRESULT WRTHSTRINGCreateReference(const char16_t *text, uint32_t length, WRTHSTRINGHeader *header,
                                  HSTRING *string) {
  static auto *forward = next<decltype(WRTHSTRINGCreateReference)>("WRTHSTRINGCreateReference");
  if (HRESULT status; answered("WRTHSTRINGCreateReference", WRT_CALLER, &status, string))
    return status;
  const HRESULT failure = std::exchange(referenceFailure, 0);
  return failure < 0 ? failure : forward(text, length, header, string);
}

void *WRTHSTRINGToCFString(HSTRING string) {
  static auto *forward = next<void *(HSTRING)>("WRTHSTRINGToCFString");
  record("WRTHSTRINGToCFString", string);
  return lacksNext(Lack::String, "WRTHSTRINGToCFString", WRT_CALLER) ? nullptr : forward(string);
}

uint32_t WRTIUnknownRelease(void *object) {
  static auto *forward = next<uint32_t(void *)>("WRTIUnknownRelease");
  record("WRTIUnknownRelease", object);
  return forward(object);
}

void WRTIUnknownSafeRelease(void *object) {
  static auto *forward = next<void(void *)>("WRTIUnknownSafeRelease");
  record("WRTIUnknownSafeRelease", object);
  forward(object);
}

void *WRTTaskMemAlloc(size_t size) {
  static auto *forward = next<void *(size_t)>("WRTTaskMemAlloc");
  // A block of no bytes can always be had.
  const bool isLacking = size > 0 && lacksNext(Lack::TaskMemory, "WRTTaskMemAlloc", WRT_CALLER);
  void *block = isLacking ? nullptr : forward(size);
  record("WRTTaskMemAlloc", block, size);
  return block;
}

void WRTTaskMemFree(void *block) {
  static auto *forward = next<void(void *)>("WRTTaskMemFree");
  record("WRTTaskMemFree", block);
  forward(block);
}

HRESULT WRTGetActivationFactory(HSTRING className, const GUID *iid, void **factory) {
  static auto *forward = next<HRESULT(HSTRING, const GUID *, void **)>("WRTGetActivationFactory");
  record("WRTGetActivationFactory", iid);
  if (HRESULT status; answered("WRTGetActivationFactory", WRT_CALLER, &status, factory))
    return status;
  const HRESULT status = forward(className, iid, factory);
  if (status < 0)
    *factory = reinterpret_cast<void *>(0xCCCCCCCC); // nobody may look at it
  return status;
}

void *WRTActivateInstance(const char16_t *className) {
  static auto *forward = next<decltype(WRTActivateInstance)>("WRTActivateInstance");
  return strikeOf("WRTActivateInstance", WRT_CALLER) == Strike::None ? forward(className) : nullptr;
}

HRESULT WRTIUnknownQueryInterface(void *object, const GUID *iid, void **result) {
  static auto *forward = next<decltype(WRTIUnknownQueryInterface)>("WRTIUnknownQueryInterface");
  if (HRESULT status; answered("WRTIUnknownQueryInterface", WRT_CALLER, &status, result))
    return status;
  return forward(object, iid, result);
}

HRESULT WRTIBufferByteAccessBuffer(void *byteAccess, uint8_t **bytes) {
  static auto *forward = next<decltype(WRTIBufferByteAccessBuffer)>("WRTIBufferByteAccessBuffer");
  if (HRESULT status; answered("WRTIBufferByteAccessBuffer", WRT_CALLER, &status, bytes))
    return status;
  return forward(byteAccess, bytes);
}

void *WRTHSTRINGFromCFString(void *string) {
  static auto *forward = next<void *(void *)>("WRTHSTRINGFromCFString");
  return strikeOf("WRTHSTRINGFromCFString", WRT_CALLER) == Strike::None ? forward(string) : nullptr;
}

void *__zorvex_dispatch_semaphore_create(long value) {
  static auto *forward = next<void *(long)>("__zorvex_dispatch_semaphore_create");
  return lacksNext(Lack::Semaphore, "__zorvex_dispatch_semaphore_create", WRT_CALLER)
             ? nullptr
             : forward(value);
}

} // extern "C"
