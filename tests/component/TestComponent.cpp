#include "tests/component/TestComponent.h"

#include "tests/component/Script.h"

const char *WRTTestComponentNextCrossing(void) {
  static thread_local std::string text;
  if (!wrt::test::takeFirstCrossing(text))
    return nullptr;
  return text.c_str();
}
