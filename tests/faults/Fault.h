#ifndef WRT_TESTS_FAULTS_FAULT_H
#define WRT_TESTS_FAULTS_FAULT_H

#include "tests/support/PlatformTrace.h"

#include <iterator>
#include <string>

namespace wrt::test::faults {

/// One way in which a call of the platform goes wrong.
struct Fault {
  const char *function;
  Strike strike;
};

/// Every function of the platform that can fail, and how. The factories of delegates fail when
/// `operator new` does.
inline constexpr Fault kFaults[] = {
    {"WRTActivateInstance", Strike::Null},
    {"WRTGetActivationFactory", Strike::Failure},
    {"WRTGetActivationFactory", Strike::Null},
    {"WRTIUnknownQueryInterface", Strike::Failure},
    {"WRTIUnknownQueryInterface", Strike::Null},
    {"WRTHSTRINGCreateReference", Strike::Failure},
    {"WRTHSTRINGDuplicate", Strike::Failure},
    {"WRTHSTRINGToCFString", Strike::Null},
    {"WRTHSTRINGFromCFString", Strike::Null},
    {"WRTTaskMemAlloc", Strike::Null},
    {"WRTIBufferByteAccessBuffer", Strike::Failure},
    {"WRTIBufferByteAccessBuffer", Strike::Null},
    {"WRTCreateBufferWrappingBytes", Strike::Null},
    {"__zorvex_dispatch_semaphore_create", Strike::Null},
    {"operator new", Strike::Null},
};

/// Whose code lies at an address: the library's (and the application layer's), the platform's, or
/// anybody else's.
enum class Owner { Library, Platform, Other };
Owner ownerOf(const void *address);

/// What a process that runs a scenario tells the one that started it, in memory that both see.
struct Report {
  /// How often the library called each function of `kFaults`.
  unsigned calls[std::size(kFaults)];
  /// Whether the cell's own code could not go on without what it did not get.
  bool isGivenUp;
  /// What was wrong first; its first word is the kind. Empty for nothing.
  char problem[2048];
};

/// From here on the library's calls of the platform are counted in `report` and the `call`th one of
/// `fault` goes wrong; with `call` 0 none does. Calls of components and of the cells' own go
/// through, except that `operator new` counts for the platform's code that a bridge calls. From
/// here on also a crash ends the process well, and gives the cell up, if the library has no part in
/// it.
void strike(const Fault &fault, unsigned call, Report &report);
/// Puts `problem` into the report that was given to `strike`, unless one stands there.
void tell(const std::string &problem);

/// Replaces every method of the bridges that tells errors by one that calls it, looks at the error
/// variable and the result afterwards, and tells what is wrong.
void watchErrors();
/// Whether this thread runs such a method.
bool isWatching();
/// The running method's part in it: `fault` is met now.
void noteStrike(const Fault &fault);

} // namespace wrt::test::faults

#endif
