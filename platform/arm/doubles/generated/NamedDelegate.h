#ifndef WRT_ARM_NAMED_DELEGATE_H
#define WRT_ARM_NAMED_DELEGATE_H

#include <WRTObjcBridge/WRTTypes.h>

WRT_EXTERN_C_BEGIN

/// A new delegate (+1) over `block` (borrowed) that calls it with whatever its Invoke is called
/// with. `factory`, a constant, is the name under which it was asked for.
void *makeNamedDelegate(void *block, const char *factory);
/// The factory that was called last, or "".
const char *testLastFactory(void);

WRT_EXTERN_C_END

#endif
