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

bool lacksNext(Lack lack) { return std::exchange(lacks[static_cast<size_t>(lack)], false); }

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
  return lacksNext(Lack::Object) ? nullptr : forward(size, tag);
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
  if (duplicateFailure < 0 && duplicatesUntilFailure-- > 0)
    return forward(string, copy);
  const HRESULT failure = std::exchange(duplicateFailure, 0);
  return failure < 0 ? failure : forward(string, copy);
}

HRESULT WRTHSTRINGCreateReference(const char16_t *text, uint32_t length, WRTHSTRINGHeader *header,
                                  HSTRING *string) {
  static auto *forward = next<decltype(WRTHSTRINGCreateReference)>("WRTHSTRINGCreateReference");
  const HRESULT failure = std::exchange(referenceFailure, 0);
  return failure < 0 ? failure : forward(text, length, header, string);
}

void *WRTHSTRINGToCFString(HSTRING string) {
  static auto *forward = next<void *(HSTRING)>("WRTHSTRINGToCFString");
  record("WRTHSTRINGToCFString", string);
  return lacksNext(Lack::String) ? nullptr : forward(string);
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
  void *block = lacksNext(Lack::TaskMemory) ? nullptr : forward(size);
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
  const HRESULT status = forward(className, iid, factory);
  if (status < 0)
    *factory = reinterpret_cast<void *>(0xCCCCCCCC); // nobody may look at it
  return status;
}

void *__zorvex_dispatch_semaphore_create(long value) {
  static auto *forward = next<void *(long)>("__zorvex_dispatch_semaphore_create");
  return lacksNext(Lack::Semaphore) ? nullptr : forward(value);
}

} // extern "C"
