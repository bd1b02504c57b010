#import <WRTObjcBridge/WRTIInspectableBridge.h>

@implementation WRTIInspectableBridge
@end
