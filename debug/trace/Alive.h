#ifndef WRT_TRACE_ALIVE_H
#define WRT_TRACE_ALIVE_H

#include <WRTObjcBridge/WRTTypes.h>

namespace wrt::trace {

/// Begins to note bridges and handlers that come and go; what is there already is not seen.
void traceLives();

/// Something that is counted under `what` (static storage) and under the crossing that this thread
/// is in has come, or has gone. Nothing before `traceLives`. Any thread.
void noteMade(const void *thing, const char *what);
void noteGone(const void *thing);

} // namespace wrt::trace

/// Writes a line for each member that bridges or handlers are alive of, with how many there are:
/// where the trace goes to. For debuggers, and for applications, which refer to it weakly. Nothing
/// but one line unless `WRT_TRACE_ALIVE` is 1. Any thread.
WRT_EXTERN_C WRT_DLLEXPORT void WRTTraceWriteAlive(void);

#endif
