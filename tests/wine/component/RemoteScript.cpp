// The component's script and its record are the program's, on the other side of the DLL boundary.

#include "tests/wine/component/Program.h"

namespace wrt::test {

Script &script() {
  static thread_local Script current;
  const char16_t *string = nullptr;
  uint32_t length = 0;
  program().readScript(&current, &string, &length);
  current.string.assign(string, length);
  return current;
}

void recordCrossing(std::string text) { program().recordCrossing(text.data(), text.size()); }

} // namespace wrt::test
