#ifndef WRT_ARM_BRIDGE_DOUBLE_H
#define WRT_ARM_BRIDGE_DOUBLE_H

#include <WRTBridge.h>

// What the double of WRTBridge_zorvex.dll tells tests and lets them arrange.
WRT_EXTERN_C_BEGIN

/// String handles, blocks of task memory and delegates that were made and not given up.
int testLiveStrings(void);
int testLiveTaskBlocks(void);
int testLiveDelegates(void);
/// Sets the activation factory (borrowed) of the one class that can be activated.
void testSetFactory(const char16_t *className, void *factory);

WRT_EXTERN_C_END

#endif
