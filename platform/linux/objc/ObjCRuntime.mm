#include <ObjCRuntime.h>

#import <Foundation/Foundation.h>

#include <Block.h>
#include <WRTObjcBridge/WRTTypes.h>

extern "C" WRT_DLLEXPORT id objc_retain(id object) { return [object retain]; }

extern "C" WRT_DLLEXPORT void objc_release(id object) { [object release]; }

extern "C" WRT_DLLEXPORT id objc_autorelease(id object) { return [object autorelease]; }

extern "C" WRT_DLLEXPORT id objc_retainBlock(id block) {
  return static_cast<id>(_Block_copy(block));
}
