#include "platform/arm/doubles/Host.h"
#include "platform/arm/doubles/bridge/Bridge.h"

#include <WRTUnknown.h>
#include <stdlib.h>

namespace {

const char16_t *factoryClass = nullptr;
void *factory = nullptr;
int taskBlocks = 0;

WRTIUnknown *unknown(void *object) { return static_cast<WRTIUnknown *>(object); }

/// The text behind a handle; in Strings.cpp.
extern "C" const char16_t *testStringText(HSTRING handle, uint32_t *length);

bool equal(const char16_t *left, const char16_t *right) {
  while (*left && *left == *right)
    ++left, ++right;
  return *left == *right;
}

constexpr HRESULT kClassNotRegistered = static_cast<HRESULT>(0x80040154);

} // namespace

extern "C" {

int testLiveTaskBlocks(void) { return taskBlocks; }

void testSetFactory(const char16_t *className, void *object) {
  factoryClass = className;
  factory = object;
}

uint32_t WRTIUnknownAddRef(void *object) {
  return unknown(object)->lpVtbl->AddRef(unknown(object));
}

uint32_t WRTIUnknownRelease(void *object) {
  return unknown(object)->lpVtbl->Release(unknown(object));
}

void WRTIUnknownSafeRelease(void *object) {
  if (object)
    WRTIUnknownRelease(object);
}

HRESULT WRTIUnknownQueryInterface(void *object, const GUID *iid, void **result) {
  return unknown(object)->lpVtbl->QueryInterface(unknown(object), iid, result);
}

GUID WRTIUnknownGetUUID(void) { return {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}; }

GUID WRTIBufferByteAccessGetUUID(void) {
  return {0x905A0FEF, 0xBC53, 0x11DF, {0x8C, 0x49, 0x00, 0x1E, 0x4F, 0xC6, 0x86, 0xDA}};
}

HRESULT WRTIBufferByteAccessBuffer(void *byteAccess, uint8_t **bytes) {
  // The one member of IBufferByteAccess stands right behind those of IUnknown.
  using Buffer = HRESULT (*)(void *, uint8_t **);
  return (*static_cast<Buffer **>(byteAccess))[3](byteAccess, bytes);
}

void *WRTCreateBufferWrappingBytes(void *, uint32_t) { hostEnd("the double wraps no buffers"); }

void *WRTActivateInstance(const char16_t *className) {
  if (!factory || !equal(className, factoryClass))
    return nullptr;
  // IActivationFactory::ActivateInstance.
  using ActivateInstance = HRESULT (*)(void *, void **);
  void *instance = nullptr;
  return (*static_cast<ActivateInstance **>(factory))[6](factory, &instance) < 0 ? nullptr
                                                                                 : instance;
}

HRESULT WRTGetActivationFactory(HSTRING className, const GUID *iid, void **result) {
  uint32_t length = 0;
  *result = nullptr;
  if (!factory || !equal(testStringText(className, &length), factoryClass))
    return kClassNotRegistered;
  return WRTIUnknownQueryInterface(factory, iid, result);
}

void *WRTTaskMemAlloc(size_t size) {
  ++taskBlocks;
  return malloc(size);
}

void WRTTaskMemFree(void *block) {
  if (block)
    --taskBlocks;
  free(block);
}
}
