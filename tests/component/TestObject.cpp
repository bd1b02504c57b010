#include "tests/component/TestObject.h"

#include "platform/linux/implement/StringHolder.h"

namespace wrt::test {

using implement::ComPtr;

namespace {

const activation::Registration registration(u"TestClass", activation::makeFactory<TestFactory>);

ComPtr<abi::TestDelegate> kept;

/// A result that a delegate did not write.
template <class Handle>
Handle untouched() {
  return reinterpret_cast<Handle>(static_cast<uintptr_t>(0xCCCCCCCC));
}

/// Records what a delegate answers, and gives its result back.
template <class Delegate, class T>
HRESULT takeResult(const char *member, Delegate *delegate, T result, auto release) {
  if (!delegate)
    return status::kPointer;
  const HRESULT status = delegate->Invoke(&result);
  const bool isUntouched = result == untouched<T>();
  receive(std::string(member) + " " + describeStatus(status) + " " +
          (isUntouched ? "untouched" : describe(result)));
  if (!isUntouched)
    release(result);
  return script().status;
}

} // namespace

HRESULT TestObject::InDelegate(abi::TestDelegate *arg) {
  if (script().keepsDelegate)
    kept = ComPtr(arg);
  recordCrossing("InDelegate");
  if (script().status >= 0) {
    for (int i = 0; i < script().invocations; ++i) {
      if (!arg)
        return status::kPointer;
      const implement::StringHolder text(u"text");
      abi::TestInterface *object = script().nullObjects ? nullptr : this;
      recordCrossing("Invoke " + describeStatus(arg->Invoke(i, text.get(), object, object)));
    }
  }
  return script().status;
}

HRESULT TestObject::InDelegateReturnString(abi::TestDelegateWithReturnString *arg) {
  return takeResult("InDelegateReturnString", arg, untouched<HSTRING>(), WRTHSTRINGRelease);
}
HRESULT TestObject::InDelegateReturnInterface(abi::TestDelegateWithReturnInterface *arg) {
  return takeResult("InDelegateReturnInterface", arg, untouched<abi::TestInterface *>(),
                    WRTIUnknownSafeRelease);
}

HRESULT TestFactory::TestStaticFunction() { return answer("TestStaticFunction"); }

HRESULT TestFactory::TestFactoryFunction(abi::TestInterface **result) {
  return answer("TestFactoryFunction", result);
}

ComPtr<abi::TestDelegate> keptDelegate() { return kept; }
void dropKeptDelegate() { kept.reset(); }

} // namespace wrt::test
