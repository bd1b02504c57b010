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
  // Made from the declarations; those that take delegates are defined in TestObject.cpp.
#include "tests/component/TestMembers.inc"
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
