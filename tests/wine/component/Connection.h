#ifndef WRT_TESTS_WINE_CONNECTION_H
#define WRT_TESTS_WINE_CONNECTION_H

#include "tests/wine/component/Program.h"

namespace wrt::test {

/// The program that has loaded this DLL and connected itself.
const WRTComponentProgram &program();

} // namespace wrt::test

#endif
