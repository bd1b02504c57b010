#ifndef WRT_TESTS_TEST_OBJECT_H
#define WRT_TESTS_TEST_OBJECT_H

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/implement/Implements.h"
#include "tests/component/Answers.h"

namespace wrt::test {

/// The component behind the test interfaces: records what reaches it and hands out what the script
/// says.
class TestObject : public implement::Implements<abi::TestInterface, abi::TestInterface2> {
public:
  HRESULT WRT_ABI VoidFunction() override { return receive("VoidFunction"); }
  HRESULT WRT_ABI InPrimitive(int32_t x) override { return receive("InPrimitive " + describe(x)); }
  HRESULT WRT_ABI InPrimitiveArray(int32_t count, int32_t *arr) override {
    return receiveArray("InPrimitiveArray", count, arr);
  }
  HRESULT WRT_ABI OutPrimitive(int32_t *x) override {
    return handOut("OutPrimitive", x, script().integer);
  }
  HRESULT WRT_ABI OutPrimitiveArray(int32_t *count, int32_t **arr) override {
    return handOutArray("OutPrimitiveArray", count, arr);
  }
  HRESULT WRT_ABI OutPrimitiveArrayPreallocated(int32_t size, int32_t *count,
                                                int32_t *arr) override {
    return fillArray("OutPrimitiveArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI InDelegate(abi::TestDelegate *arg) override;
  HRESULT WRT_ABI Slot13() override { return receive("Slot13"); }
  HRESULT WRT_ABI Slot14() override { return receive("Slot14"); }
  HRESULT WRT_ABI InInterface(abi::TestInterface *arg) override {
    return receive("InInterface " + describe(arg));
  }
  HRESULT WRT_ABI InInterfaceArray(int32_t count, abi::TestInterface **arr) override {
    return receiveArray("InInterfaceArray", count, arr);
  }
  HRESULT WRT_ABI InRtc(abi::TestInterface *arg) override {
    return receive("InRtc " + describe(arg));
  }
  HRESULT WRT_ABI InRtcArray(int32_t count, abi::TestInterface **arr) override {
    return receiveArray("InRtcArray", count, arr);
  }
  HRESULT WRT_ABI InString(HSTRING arg) override { return receive("InString " + describe(arg)); }
  HRESULT WRT_ABI InStringArray(int32_t count, HSTRING *arr) override {
    return receiveArray("InStringArray", count, arr);
  }
  HRESULT WRT_ABI OutInterface(abi::TestInterface **arg) override {
    return handOutObject("OutInterface", arg);
  }
  HRESULT WRT_ABI OutInterfaceArray(int32_t *count, abi::TestInterface ***arr) override {
    return handOutArray("OutInterfaceArray", count, arr);
  }
  HRESULT WRT_ABI OutInterfaceArrayPreallocated(int32_t size, int32_t *count,
                                                abi::TestInterface **arr) override {
    return fillArray("OutInterfaceArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI OutRtc(abi::TestInterface **arg) override { return handOutObject("OutRtc", arg); }
  HRESULT WRT_ABI OutRtcArray(int32_t *count, abi::TestInterface ***arr) override {
    return handOutArray("OutRtcArray", count, arr);
  }
  HRESULT WRT_ABI OutRtcArrayPreallocated(int32_t size, int32_t *count,
                                          abi::TestInterface **arr) override {
    return fillArray("OutRtcArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI OutString(HSTRING *arg) override { return handOutString("OutString", arg); }
  HRESULT WRT_ABI OutStringArray(int32_t *count, HSTRING **arr) override {
    return handOutArray("OutStringArray", count, arr);
  }
  HRESULT WRT_ABI OutStringArrayPreallocated(int32_t size, int32_t *count, HSTRING *arr) override {
    return fillArray("OutStringArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI ReturnPrimitive(int32_t *result) override {
    return handOut("ReturnPrimitive", result, script().integer);
  }
  HRESULT WRT_ABI ReturnPrimitiveArray(int32_t *count, int32_t **arr) override {
    return handOutArray("ReturnPrimitiveArray", count, arr);
  }
  HRESULT WRT_ABI ReturnPrimitiveArrayPreallocated(int32_t size, int32_t *count,
                                                   int32_t *arr) override {
    return fillArray("ReturnPrimitiveArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI ReturnInterface(abi::TestInterface **result) override {
    return handOutObject("ReturnInterface", result);
  }
  HRESULT WRT_ABI ReturnInterfaceArray(int32_t *count, abi::TestInterface ***arr) override {
    return handOutArray("ReturnInterfaceArray", count, arr);
  }
  HRESULT WRT_ABI ReturnInterfaceArrayPreallocated(int32_t size, int32_t *count,
                                                   abi::TestInterface **arr) override {
    return fillArray("ReturnInterfaceArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI ReturnRtc(abi::TestInterface **result) override {
    return handOutObject("ReturnRtc", result);
  }
  HRESULT WRT_ABI ReturnRtcArray(int32_t *count, abi::TestInterface ***arr) override {
    return handOutArray("ReturnRtcArray", count, arr);
  }
  HRESULT WRT_ABI ReturnRtcArrayPreallocated(int32_t size, int32_t *count,
                                             abi::TestInterface **arr) override {
    return fillArray("ReturnRtcArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI ReturnString(HSTRING *result) override {
    return handOutString("ReturnString", result);
  }
  HRESULT WRT_ABI ReturnStringArray(int32_t *count, HSTRING **arr) override {
    return handOutArray("ReturnStringArray", count, arr);
  }
  HRESULT WRT_ABI ReturnStringArrayPreallocated(int32_t size, int32_t *count,
                                                HSTRING *arr) override {
    return fillArray("ReturnStringArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI InStruct(WRTTestStruct arg) override {
    return receive("InStruct " + describe(arg));
  }
  HRESULT WRT_ABI InStructArray(int32_t count, WRTTestStruct *arr) override {
    return receiveArray("InStructArray", count, arr);
  }
  HRESULT WRT_ABI OutStruct(WRTTestStruct *arg) override {
    return handOut("OutStruct", arg, script().structure);
  }
  HRESULT WRT_ABI OutStructArray(int32_t *count, WRTTestStruct **arr) override {
    return handOutArray("OutStructArray", count, arr);
  }
  HRESULT WRT_ABI OutStructArrayPreallocated(int32_t size, int32_t *count,
                                             WRTTestStruct *arr) override {
    return fillArray("OutStructArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI ReturnStruct(WRTTestStruct *result) override {
    return handOut("ReturnStruct", result, script().structure);
  }
  HRESULT WRT_ABI ReturnStructArray(int32_t *count, WRTTestStruct **arr) override {
    return handOutArray("ReturnStructArray", count, arr);
  }
  HRESULT WRT_ABI ReturnStructArrayPreallocated(int32_t size, int32_t *count,
                                                WRTTestStruct *arr) override {
    return fillArray("ReturnStructArrayPreallocated", size, count, arr);
  }
  HRESULT WRT_ABI InDelegateReturnString(abi::TestDelegateWithReturnString *arg) override;
  HRESULT WRT_ABI InDelegateReturnInterface(abi::TestDelegateWithReturnInterface *arg) override;

  HRESULT WRT_ABI VoidFunctionFromInterface2() override {
    return receive("VoidFunctionFromInterface2");
  }
};

/// The statics and the factory of the test class.
class TestFactory
    : public implement::DefaultActivationFactory<TestObject, abi::TestInterfaceStatics,
                                                 abi::TestInterfaceFactory> {
public:
  HRESULT WRT_ABI TestStaticFunction() override;
  HRESULT WRT_ABI TestFactoryFunction(abi::TestInterface **result) override;
};

/// The delegate that `InDelegate` kept last, or null.
implement::ComPtr<abi::TestDelegate> keptDelegate();
void dropKeptDelegate();

} // namespace wrt::test

#endif
