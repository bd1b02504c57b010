#include "tests/component/TestComponent.h"

#include "tests/component/Script.h"

const char *WRTTestComponentNextCrossing(void) {
  static thread_local std::vector<std::string> first;
  first = wrt::test::takeCrossings(1);
  return first.empty() ? nullptr : first[0].c_str();
}
