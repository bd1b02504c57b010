#ifndef WRT_ARM_START_UP_H
#define WRT_ARM_START_UP_H

#include "Process.h"

#include <iosfwd>

namespace wrt::emulator {

/// Loads the doubles and then the product, attaches each, and says what the product's start-up did.
/// Throws `Fault` when one refuses.
void startUp(Process &process, const std::vector<std::string> &files, std::ostream &out);

} // namespace wrt::emulator

#endif
