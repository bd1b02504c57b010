#ifndef WRT_TRACE_METHODS_H
#define WRT_TRACE_METHODS_H

#include "debug/trace/Crossing.h"

#import <objc/runtime.h>

namespace wrt::trace {

/// Gives a method of `owner`, a class or a class's class, other code; the code that it had.
/// Subclasses that have received a message may go on with that.
IMP replaceMethod(Class owner, ::Method method, IMP by);

/// Takes the place of the methods that the settings tell, for good. Throws `std::runtime_error`
/// with a line when the loaded library has not the methods that the tables say.
void traceMethods(const Settings &settings);

} // namespace wrt::trace

#endif
