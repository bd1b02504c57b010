#ifndef WRT_BENCH_WRITTEN_OUT_FAMILIES_H
#define WRT_BENCH_WRITTEN_OUT_FAMILIES_H

#import <WRTObjcBridge/WRTInterfaceProxy.h>
#include <WRTObjcBridge/WRTTypes.h>

// The measured members of the generic families, each written out by hand: the same messages,
// platform calls and interface call as the generated method's, in the same order.

/// Of `IVector<String>`.
@interface WrittenVector : WRTInterfaceProxy
- (void *)_interfaceWithError:(NSError **)error;
- (NSString *)getAtWithIndex:(unsigned int)index error:(NSError **)error;
- (NSArray *)getManyWithStartIndex:(unsigned int)start
                          capacity:(unsigned int)capacity
                             error:(NSError **)error;
@end

/// Of `IIterable<RegionOfInterest>`.
@interface WrittenIterable : WRTInterfaceProxy
- (void *)_interfaceWithError:(NSError **)error;
- (id)firstWithError:(NSError **)error;
@end

/// Of `IIterator<RegionOfInterest>`.
@interface WrittenIterator : WRTInterfaceProxy
- (void *)_interfaceWithError:(NSError **)error;
- (id)getCurrentWithError:(NSError **)error;
- (bool)getHasCurrentWithError:(NSError **)error;
- (bool)moveNextWithError:(NSError **)error;
@end

/// Of `IMap<String, IVector<String>>`.
@interface WrittenMap : WRTInterfaceProxy
- (void *)_interfaceWithError:(NSError **)error;
- (id)lookupWithKey:(NSString *)key error:(NSError **)error;
@end

/// Of `PropertyValue` and `IPropertyValue`.
@interface WrittenValue : WRTInterfaceProxy
+ (void *)_staticsWithError:(NSError **)error;
+ (id)createInt32WithValue:(int)value error:(NSError **)error;
- (void *)_interfaceWithError:(NSError **)error;
- (int)getInt32WithError:(NSError **)error;
@end

/// Of `IAsyncOperation<UInt32>`.
@interface WrittenOperation : WRTInterfaceProxy
- (void *)_interfaceWithError:(NSError **)error;
- (void)setCompletedWithHandler:(id)handler error:(NSError **)error;
- (unsigned int)getResultsWithError:(NSError **)error;
@end

#endif
