// The component's script and its record are the program's, on the other side of the DLL boundary.

#include "tests/component/Script.h"
#include "tests/wine/component/Connection.h"

namespace wrt::test {

Script &script() {
  static thread_local Script current;
  WRTComponentScript read;
  program().readScript(&read);
  current.status = read.status;
  current.poisons = read.poisons;
  current.nullObjects = read.nullObjects;
  current.integer = read.integer;
  current.structure = read.structure;
  current.string.assign(read.string, read.stringLength);
  current.count = read.count;
  current.invocations = read.invocations;
  current.keepsDelegate = read.keepsDelegate;
  return current;
}

void recordCrossing(std::string text) { program().recordCrossing(text.data(), text.size()); }

} // namespace wrt::test
