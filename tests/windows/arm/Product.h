#ifndef WRT_TESTS_PRODUCT_H
#define WRT_TESTS_PRODUCT_H

#include "arm/FakeObject.h"

#import <WRTObjcBridge/test.h>
#include <abi/test.abi.h>

namespace wrt::test {

using TestObject = FakeObject<WRTTestInterfaceVtbl>;

// By what crosses, on a bridge of an object that nobody else refers to. Each leaves everything as
// it found it but for autoreleased objects.
void testStringsAndArrays(TestObject &object, WRTTestInterfaceBridge *bridge);
void testObjects(TestObject &object, WRTTestInterfaceBridge *bridge);
void testDelegates(TestObject &object, WRTTestInterfaceBridge *bridge);

} // namespace wrt::test

#endif
