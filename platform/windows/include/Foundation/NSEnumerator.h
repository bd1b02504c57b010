#ifndef FOUNDATION_NSENUMERATOR_H
#define FOUNDATION_NSENUMERATOR_H

#import <Foundation/NSObject.h>

/// What `for (... in ...)` keeps between two requests.
typedef struct {
  unsigned long state;
  __unsafe_unretained id *itemsPtr;
  unsigned long *mutationsPtr;
  unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
/// The next objects, at most `count` of them in `buffer`, or as many as there are at
/// `state->itemsPtr`; 0 at the end.
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState *)state
                                  objects:(__unsafe_unretained id *)buffer
                                    count:(NSUInteger)count;
@end

NS_ASSUME_NONNULL_BEGIN

FOUNDATION_CLASS
@interface NSEnumerator : NSObject <NSFastEnumeration>
- (nullable id)nextObject;
@end

NS_ASSUME_NONNULL_END

#endif
