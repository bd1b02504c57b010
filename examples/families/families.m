// The generic families: an Objective-C program that waits for an operation with progress, fills and
// walks a vector, looks things up in a map and boxes values.

#import <Foundation/Foundation.h>
#import <WRTObjcBridge/IAsyncOperationWithProgress.h>
#import <WRTObjcBridge/IMap.h>
#import <WRTObjcBridge/IReference.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Foundation.h>

#include "examples/families/Sample.h"

#include <stdio.h>

typedef id<WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge> Operation;

static void printStep(const char *step) { printf("\n%s\n", step); }

/// Prints the failure that a member reported.
static void printError(const char *what, NSError *error) {
  printf("    %-15s %s 0x%08x\n", what, [[error domain] UTF8String], (unsigned)[error code]);
}

/// Waits until the operation has ended. Handlers run on a thread of WinRT's.
static void waitFor(Operation operation) {
  NSConditionLock *lock = [[[NSConditionLock alloc] initWithCondition:0] autorelease];
  NSError *error = nil;
  [operation
      setProgressWithHandler:^HRESULT(Operation running, unsigned int percent) {
        printf("    progress        %u %%, status %d\n", percent,
               [[WRTIAsyncInfoBridge cast:running] getStatusWithError:NULL]);
        return 0;
      }
                       error:&error];
  [operation
      setCompletedWithHandler:^HRESULT(Operation done, int status) {
        NSError *failure = nil;
        unsigned int sum = [done getResultsWithError:&failure];
        if (failure)
          printError("no result", failure);
        else
          printf("    result          %u, status %d\n", sum, status);
        [lock lock];
        [lock unlockWithCondition:1];
        return 0;
      }
                        error:&error];
  [lock lockWhenCondition:1];
  [lock unlock];
}

static void waitForOperations(void) {
  printStep("An operation with progress");
  waitFor(
      [WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge bridgeTransfer:SampleAddUp(4)]);

  printStep("The same, canceled");
  Operation operation = [WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge
      bridgeTransfer:SampleAddUp(1000)];
  WRTIAsyncInfoBridge *info = [WRTIAsyncInfoBridge cast:operation];
  NSError *error = nil;
  [operation getResultsWithError:&error];
  printError("too early", error);
  [info cancelWithError:&error];
  waitFor(operation);
}

static id<WRTIVector__1_WRTHSTRING_Bridge> newVector(NSArray *words) {
  WRTIVector__1_WRTHSTRING_Bridge *vector =
      [WRTIVector__1_WRTHSTRING_Bridge bridgeTransfer:SampleNewVector()];
  [vector replaceAllWithValues:words error:NULL];
  return vector;
}

static void useVector(void) {
  printStep("A vector");
  NSError *error = nil;
  id<WRTIVector__1_WRTHSTRING_Bridge> vector =
      newVector([NSArray arrayWithObjects:@"one", @"three", nil]);
  [vector insertAtWithIndex:1 item:@"two" error:&error];
  [vector appendWithItem:@"vier" error:&error];
  unsigned int size = [vector getSizeWithError:&error];
  for (unsigned int i = 0; i < size; ++i)
    printf("    element %u       %s\n", i, [[vector getAtWithIndex:i error:&error] UTF8String]);
  unsigned int index = 0;
  if ([vector indexOfWithValue:@"three" index:&index error:&error])
    printf("    \"three\" at      %u\n", index);
  NSArray *rest = [[vector getViewWithError:&error] getManyWithStartIndex:2
                                                                 capacity:10
                                                                    error:&error];
  printf("    from 2 on       %s\n", [[rest componentsJoinedByString:@", "] UTF8String]);
  [vector getAtWithIndex:17 error:&error];
  printError("element 17", error);
}

static void useMap(void) {
  printStep("A map from strings to vectors");
  NSError *error = nil;
  bool replaced = false;
  id<WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge> map =
      [WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge bridgeTransfer:SampleNewMap()];
  [map insertWithKey:@"Pictures"
               value:newVector([NSArray arrayWithObjects:@".png", @".jpg", nil])
            replaced:&replaced
               error:&error];
  [map insertWithKey:@"Text"
               value:newVector([NSArray arrayWithObject:@".txt"])
            replaced:&replaced
               error:&error];
  id<WRTIVector__1_WRTHSTRING_Bridge> pictures = [map lookupWithKey:@"Pictures" error:&error];
  printf("    Pictures        %s\n",
         [[[pictures getManyWithStartIndex:0 capacity:10
                                     error:&error] componentsJoinedByString:@", "] UTF8String]);
  printf("    size            %u\n", [map getSizeWithError:&error]);
  [map lookupWithKey:@"Music" error:&error];
  printError("Music", error);
}

static void boxValues(void) {
  printStep("Boxed values");
  NSError *error = nil;
  id boxed = [WRTPropertyValueBridge createInt32WithValue:-42 error:&error];
  WRTIPropertyValueBridge *value = [WRTIPropertyValueBridge cast:boxed];
  printf("    Int32           %d, property type %d\n", [value getInt32WithError:&error],
         [value getTypeWithError:&error]);
  printf("    as a reference  %d\n",
         [[WRTIReference__1_WRTINT32_Bridge cast:boxed] getValueWithError:&error]);
  printf("    as a Double     %g\n", [value getDoubleWithError:&error]);
  [value getUInt8WithError:&error];
  printError("as a UInt8", error);
  [value getStringWithError:&error];
  printError("as a String", error);
}

int main(void) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  waitForOperations();
  useVector();
  useMap();
  boxValues();
  [pool release];
  return 0;
}
