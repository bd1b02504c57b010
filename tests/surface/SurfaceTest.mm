// Every class of the surface is in the library with its superclass and with exactly the methods
// that are listed. Encodings are those of the product and are compared there.

#include "tests/catalogue/CatalogueTable.h"

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#import <objc/runtime.h>

#include <cstdlib>
#include <set>

using namespace wrt::test;

namespace {

using Methods = std::multiset<std::string>; // `+selector` and `-selector`

void addMethods(Class type, char side, Methods &methods) {
  unsigned count = 0;
  Method *list = class_copyMethodList(type, &count);
  for (unsigned i = 0; i < count; ++i)
    methods.insert(side + std::string(sel_getName(method_getName(list[i]))));
  free(static_cast<void *>(list));
}

Methods methodsOf(Class type) {
  Methods methods;
  addMethods(type, '-', methods);
  addMethods(object_getClass(type), '+', methods);
  return methods;
}

Methods listed(const std::string &className) {
  Methods methods;
  const auto found = catalogueTable().find(className);
  if (found != catalogueTable().end()) {
    for (const CatalogueMethod &method : found->second) {
      // Comes with automatic reference counting, which this runtime has not.
      if (method.selector != ".cxx_destruct")
        methods.insert(method.side + method.selector);
    }
  }
  return methods;
}

} // namespace

TEST(Surface, EveryClassIsThereAndHasTheListedMethods) {
  ASSERT_FALSE(surfaceClasses().empty());
  for (const SurfaceClass &line : surfaceClasses()) {
    Class type = objc_lookUpClass(line.name.c_str());
    if (!type) {
      ADD_FAILURE() << "no class " << line.name;
      continue;
    }
    EXPECT_EQ(line.superclass, class_getName(class_getSuperclass(type))) << line.name;
    EXPECT_EQ(listed(line.name), methodsOf(type)) << line.name;
  }
}
