#ifndef WRT_TRACE_METHODS_H
#define WRT_TRACE_METHODS_H

#include "debug/trace/Crossing.h"

namespace wrt::trace {

/// Takes the place of the methods that the settings tell, for good. Throws `std::runtime_error`
/// with a line when the loaded library has not the methods that the tables say.
void traceMethods(const Settings &settings);

} // namespace wrt::trace

#endif
