#include "tests/component/TestObject.h"

#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/string/HString.h"

#include <WRTBridge.h>

#include <algorithm>
#include <cstring>

namespace wrt::test {

using implement::ComPtr;

namespace {

const activation::Registration registration(u"TestClass", activation::makeFactory<TestFactory>);

ComPtr<abi::TestDelegate> kept;

// Elements as the script describes them.
int32_t makeElement(int32_t index, int32_t *) { return index + 1; }

WRTTestStruct makeElement(int32_t index, WRTTestStruct *) { return {index + 1, -index - 1}; }

HSTRING makeElement(int32_t index, HSTRING *) {
  std::u16string text;
  for (char digit : std::to_string(index))
    text += static_cast<char16_t>(digit);
  HSTRING string = nullptr;
  makeString(text, &string);
  return string;
}

abi::TestInterface *makeElement(int32_t, abi::TestInterface **) {
  return script().nullObjects ? nullptr : implement::make<TestObject>().detach();
}

template <class T>
void poison(T *place) {
  std::memset(static_cast<void *>(place), 0xCC, sizeof *place);
}

/// Whether the member is to hand out anything; poisons its out-values first if it is not.
template <class... T>
bool handsOut(const char *member, T *...places) {
  recordCrossing(member);
  if (script().status < 0 && script().poisons)
    (poison(places), ...);
  return script().status >= 0;
}

template <class T>
HRESULT handOut(const char *member, T *place, T value) {
  if (handsOut(member, place))
    *place = value;
  return script().status;
}

HRESULT handOutObject(const char *member, abi::TestInterface **place) {
  if (handsOut(member, place))
    *place = makeElement(0, place);
  return script().status;
}

HRESULT handOutString(const char *member, HSTRING *place) {
  if (handsOut(member, place))
    makeString(script().string, place);
  return script().status;
}

/// An array that the component allocates and the caller owns.
template <class T>
HRESULT handOutArray(const char *member, int32_t *count, T **block) {
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
HRESULT fillArray(const char *member, int32_t size, int32_t *count, T *block) {
  if (handsOut((std::string(member) + " " + std::to_string(size)).c_str(), count)) {
    *count = std::min(size, script().count);
    for (int32_t i = 0; i < *count; ++i)
      block[i] = makeElement(i, block);
  }
  return script().status;
}

HRESULT receive(std::string text) {
  recordCrossing(std::move(text));
  return script().status;
}

std::string describe(abi::TestInterface *object) {
  if (!object)
    return "null";
  void *identity = nullptr;
  object->QueryInterface(&abi::IUnknown::kIid, &identity);
  if (identity)
    object->Release();
  return identity ? "object" : "stranger";
}
std::string describe(HSTRING string) {
  return string ? "\"" + narrow(viewOf(string)) + "\"" : "null";
}
std::string describe(int32_t value) { return std::to_string(value); }
std::string describe(const WRTTestStruct &value) {
  return "{" + std::to_string(value.x) + ", " + std::to_string(value.y) + "}";
}

template <class T>
HRESULT receiveArray(const char *member, int32_t count, T *block) {
  std::string text = std::string(member) + " [";
  for (int32_t i = 0; i < count; ++i)
    text += (i ? ", " : "") + describe(block[i]);
  return receive(text + "]");
}

std::string hex(HRESULT status) {
  char text[16];
  std::snprintf(text, sizeof text, "%08x", static_cast<uint32_t>(status));
  return text;
}

/// A result that a delegate did not write.
template <class Handle>
Handle untouched() {
  return reinterpret_cast<Handle>(static_cast<uintptr_t>(0xCCCCCCCC));
}

} // namespace

HRESULT TestObject::VoidFunction() { return receive("VoidFunction"); }
HRESULT TestObject::InPrimitive(int32_t x) { return receive("InPrimitive " + describe(x)); }
HRESULT TestObject::InPrimitiveArray(int32_t count, int32_t *arr) {
  return receiveArray("InPrimitiveArray", count, arr);
}
HRESULT TestObject::OutPrimitive(int32_t *x) {
  return handOut("OutPrimitive", x, script().integer);
}
HRESULT TestObject::OutPrimitiveArray(int32_t *count, int32_t **arr) {
  return handOutArray("OutPrimitiveArray", count, arr);
}
HRESULT TestObject::OutPrimitiveArrayPreallocated(int32_t size, int32_t *count, int32_t *arr) {
  return fillArray("OutPrimitiveArrayPreallocated", size, count, arr);
}

HRESULT TestObject::InDelegate(abi::TestDelegate *arg) {
  if (script().keepsDelegate)
    kept = ComPtr(arg);
  recordCrossing("InDelegate");
  if (script().status >= 0) {
    for (int i = 0; i < script().invocations; ++i) {
      const implement::StringHolder text(u"text");
      abi::TestInterface *object = script().nullObjects ? nullptr : this;
      recordCrossing("Invoke " + hex(arg->Invoke(i, text.get(), object, object)));
    }
  }
  return script().status;
}

HRESULT TestObject::Slot13() { return receive("Slot13"); }
HRESULT TestObject::Slot14() { return receive("Slot14"); }

HRESULT TestObject::InInterface(abi::TestInterface *arg) {
  return receive("InInterface " + describe(arg));
}
HRESULT TestObject::InInterfaceArray(int32_t count, abi::TestInterface **arr) {
  return receiveArray("InInterfaceArray", count, arr);
}
HRESULT TestObject::InRtc(abi::TestInterface *arg) { return receive("InRtc " + describe(arg)); }
HRESULT TestObject::InRtcArray(int32_t count, abi::TestInterface **arr) {
  return receiveArray("InRtcArray", count, arr);
}
HRESULT TestObject::InString(HSTRING arg) { return receive("InString " + describe(arg)); }
HRESULT TestObject::InStringArray(int32_t count, HSTRING *arr) {
  return receiveArray("InStringArray", count, arr);
}

HRESULT TestObject::OutInterface(abi::TestInterface **arg) {
  return handOutObject("OutInterface", arg);
}
HRESULT TestObject::OutInterfaceArray(int32_t *count, abi::TestInterface ***arr) {
  return handOutArray("OutInterfaceArray", count, arr);
}
HRESULT TestObject::OutInterfaceArrayPreallocated(int32_t size, int32_t *count,
                                                  abi::TestInterface **arr) {
  return fillArray("OutInterfaceArrayPreallocated", size, count, arr);
}
HRESULT TestObject::OutRtc(abi::TestInterface **arg) { return handOutObject("OutRtc", arg); }
HRESULT TestObject::OutRtcArray(int32_t *count, abi::TestInterface ***arr) {
  return handOutArray("OutRtcArray", count, arr);
}
HRESULT TestObject::OutRtcArrayPreallocated(int32_t size, int32_t *count,
                                            abi::TestInterface **arr) {
  return fillArray("OutRtcArrayPreallocated", size, count, arr);
}
HRESULT TestObject::OutString(HSTRING *arg) { return handOutString("OutString", arg); }
HRESULT TestObject::OutStringArray(int32_t *count, HSTRING **arr) {
  return handOutArray("OutStringArray", count, arr);
}
HRESULT TestObject::OutStringArrayPreallocated(int32_t size, int32_t *count, HSTRING *arr) {
  return fillArray("OutStringArrayPreallocated", size, count, arr);
}

HRESULT TestObject::ReturnPrimitive(int32_t *result) {
  return handOut("ReturnPrimitive", result, script().integer);
}
HRESULT TestObject::ReturnPrimitiveArray(int32_t *count, int32_t **arr) {
  return handOutArray("ReturnPrimitiveArray", count, arr);
}
HRESULT TestObject::ReturnPrimitiveArrayPreallocated(int32_t size, int32_t *count, int32_t *arr) {
  return fillArray("ReturnPrimitiveArrayPreallocated", size, count, arr);
}
HRESULT TestObject::ReturnInterface(abi::TestInterface **result) {
  return handOutObject("ReturnInterface", result);
}
HRESULT TestObject::ReturnInterfaceArray(int32_t *count, abi::TestInterface ***arr) {
  return handOutArray("ReturnInterfaceArray", count, arr);
}
HRESULT TestObject::ReturnInterfaceArrayPreallocated(int32_t size, int32_t *count,
                                                     abi::TestInterface **arr) {
  return fillArray("ReturnInterfaceArrayPreallocated", size, count, arr);
}
HRESULT TestObject::ReturnRtc(abi::TestInterface **result) {
  return handOutObject("ReturnRtc", result);
}
HRESULT TestObject::ReturnRtcArray(int32_t *count, abi::TestInterface ***arr) {
  return handOutArray("ReturnRtcArray", count, arr);
}
HRESULT TestObject::ReturnRtcArrayPreallocated(int32_t size, int32_t *count,
                                               abi::TestInterface **arr) {
  return fillArray("ReturnRtcArrayPreallocated", size, count, arr);
}
HRESULT TestObject::ReturnString(HSTRING *result) { return handOutString("ReturnString", result); }
HRESULT TestObject::ReturnStringArray(int32_t *count, HSTRING **arr) {
  return handOutArray("ReturnStringArray", count, arr);
}
HRESULT TestObject::ReturnStringArrayPreallocated(int32_t size, int32_t *count, HSTRING *arr) {
  return fillArray("ReturnStringArrayPreallocated", size, count, arr);
}

HRESULT TestObject::InStruct(WRTTestStruct arg) { return receive("InStruct " + describe(arg)); }
HRESULT TestObject::InStructArray(int32_t count, WRTTestStruct *arr) {
  return receiveArray("InStructArray", count, arr);
}
HRESULT TestObject::OutStruct(WRTTestStruct *arg) {
  return handOut("OutStruct", arg, script().structure);
}
HRESULT TestObject::OutStructArray(int32_t *count, WRTTestStruct **arr) {
  return handOutArray("OutStructArray", count, arr);
}
HRESULT TestObject::OutStructArrayPreallocated(int32_t size, int32_t *count, WRTTestStruct *arr) {
  return fillArray("OutStructArrayPreallocated", size, count, arr);
}
HRESULT TestObject::ReturnStruct(WRTTestStruct *result) {
  return handOut("ReturnStruct", result, script().structure);
}
HRESULT TestObject::ReturnStructArray(int32_t *count, WRTTestStruct **arr) {
  return handOutArray("ReturnStructArray", count, arr);
}
HRESULT TestObject::ReturnStructArrayPreallocated(int32_t size, int32_t *count,
                                                  WRTTestStruct *arr) {
  return fillArray("ReturnStructArrayPreallocated", size, count, arr);
}

HRESULT TestObject::InDelegateReturnString(abi::TestDelegateWithReturnString *arg) {
  HSTRING result = untouched<HSTRING>();
  const HRESULT status = arg->Invoke(&result);
  const bool isUntouched = result == untouched<HSTRING>();
  recordCrossing("InDelegateReturnString " + hex(status) + " " +
                 (isUntouched ? "untouched" : describe(result)));
  if (!isUntouched)
    WRTHSTRINGRelease(result);
  return script().status;
}

HRESULT TestObject::InDelegateReturnInterface(abi::TestDelegateWithReturnInterface *arg) {
  abi::TestInterface *result = untouched<abi::TestInterface *>();
  const HRESULT status = arg->Invoke(&result);
  const bool isUntouched = result == untouched<abi::TestInterface *>();
  recordCrossing("InDelegateReturnInterface " + hex(status) + " " +
                 (isUntouched ? "untouched" : describe(result)));
  if (!isUntouched)
    WRTIUnknownSafeRelease(result);
  return script().status;
}

HRESULT TestObject::VoidFunctionFromInterface2() { return receive("VoidFunctionFromInterface2"); }

HRESULT TestFactory::TestStaticFunction() { return receive("TestStaticFunction"); }

HRESULT TestFactory::TestFactoryFunction(abi::TestInterface **result) {
  return handOutObject("TestFactoryFunction", result);
}

ComPtr<abi::TestDelegate> keptDelegate() { return kept; }
void dropKeptDelegate() { kept.reset(); }

} // namespace wrt::test
