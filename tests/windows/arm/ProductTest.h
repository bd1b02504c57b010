#ifndef WRT_TESTS_PRODUCT_TEST_H
#define WRT_TESTS_PRODUCT_TEST_H

// The product's tests on ARM, by what crosses. Each leaves everything as it found it but for
// autoreleased objects.
namespace wrt::test {

void testStringsAndArrays();
void testObjects();
void testDelegates();

} // namespace wrt::test

#endif
