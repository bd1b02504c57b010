#ifndef WRT_TESTS_THROWING_H
#define WRT_TESTS_THROWING_H

#include "platform/linux/components/async/AsyncFamilies.h"

namespace wrt::test {

/// An operation (+1) whose work throws: out of memory, or something else. Apart from the cells,
/// since Objective-C++ code cannot catch C++ exceptions with this runtime.
implement::IAsyncOperation<implement::UInt32> *startThrowing(bool outOfMemory);

} // namespace wrt::test

#endif
