// Wine's classes through the bridges: every member in the list of expectations.
// Usage: CLASSES EXPECTATIONS

#include "tests/wine/classes/Members.h"

#include <cstdio>

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "Usage: classes EXPECTATIONS\n");
    return 2;
  }
  wrt::test::readExpectations(argv[1]);
  return RUN_ALL_TESTS();
}
