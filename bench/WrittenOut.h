#ifndef WRT_BENCH_WRITTEN_OUT_H
#define WRT_BENCH_WRITTEN_OUT_H

#import <WRTObjcBridge/WRTInterfaceProxy.h>
#import <WRTObjcBridge/test.h>

/// The measured members of the test interface, each written out by hand: the same messages,
/// platform calls and interface call as the generated method's, in the same order.
@interface WrittenOut : WRTInterfaceProxy
- (WRTTestInterface *)_WRTTestInterfaceWithError:(NSError **)error;
- (void)voidFunctionWithError:(NSError **)error;
- (int)returnPrimitiveWithError:(NSError **)error;
- (void)inPrimitiveWithX:(int)x error:(NSError **)error;
- (NSString *)returnStringWithError:(NSError **)error;
- (void)inStringWithArg:(NSString *)arg error:(NSError **)error;
- (id)returnInterfaceWithError:(NSError **)error;
- (void)inInterfaceWithArg:(id)arg error:(NSError **)error;
- (WRTTestStruct)returnStructWithError:(NSError **)error;
- (void)inStringArrayWithArr:(NSArray *)arr error:(NSError **)error;
- (void)outStringArrayPreallocatedWithSize:(int)size
                                       arr:(NSMutableArray *)arr
                                     error:(NSError **)error;
- (void)inDelegateWithArg:(id)arg error:(NSError **)error;
@end

#endif
