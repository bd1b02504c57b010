#import <WRTObjcBridge/WRTInterfaceProxy.h>

@implementation WRTInterfaceProxy
@end
