// A first look: an Objective-C program that uses a runtime class through its bridge and prints what
// crossed in each direction. The class behind it is the test component, written in C++.

#import <WRTObjcBridge/test.h>

#include "tests/component/TestComponent.h"

#include <stdio.h>

/// Prints what reached the component since the last time.
static void printCrossings(void) {
  for (const char *crossing; (crossing = WRTTestComponentNextCrossing());)
    printf("    component got   %s\n", crossing);
}

static void printStep(const char *step) { printf("\n%s\n", step); }

/// Prints an error as the bridge reports it, or that there is none.
static void printOutcome(NSError *error) {
  if (error)
    printf("    error           %s 0x%08x\n", [[error domain] UTF8String], (unsigned)[error code]);
  printCrossings();
}

int main(void) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSError *error = nil;

  printStep("[[WRTTestClassBridge alloc] init]");
  WRTTestClassBridge *object = [[[WRTTestClassBridge alloc] init] autorelease];
  if (!object) {
    fprintf(stderr, "first: the runtime class TestClass cannot be activated\n");
    return 1;
  }
  printf("    caller got      a bridge for TestClass\n");

  printStep("A number in, a number back");
  [object inPrimitiveWithX:7 error:&error];
  printOutcome(error);
  printf("    caller got      %d\n", [object returnPrimitiveWithError:&error]);
  printOutcome(error);

  printStep("Strings, single and in an array");
  [object inStringWithArg:@"Grüße 😀" error:&error];
  printOutcome(error);
  NSArray *words = [NSArray arrayWithObjects:@"one", @"two", @"three", nil];
  [object inStringArrayWithArr:words error:&error];
  printOutcome(error);
  NSArray *strings = [object returnStringArrayWithError:&error];
  printf("    caller got      (%s)\n", [[strings componentsJoinedByString:@", "] UTF8String]);
  printOutcome(error);

  printStep("A structure by value");
  WRTTestStruct point = [object returnStructWithError:&error];
  printf("    caller got      {%d, %d}\n", point.x, point.y);
  printOutcome(error);

  printStep("Objects both ways");
  id<WRTTestInterfaceBridge> other = [object returnInterfaceWithError:&error];
  printf("    caller got      a %s\n", [NSStringFromClass([(id)other class]) UTF8String]);
  [object inInterfaceWithArg:other error:&error];
  printOutcome(error);

  printStep("A block as a delegate");
  [object
      inDelegateWithArg:^HRESULT(int x, NSString *s, id<WRTTestInterfaceBridge> i,
                                 WRTTestClassBridge *c) {
        printf("    block got       %d, \"%s\", %s, %s\n", x, [s UTF8String],
               [NSStringFromClass([(id)i class]) UTF8String],
               [NSStringFromClass([c class]) UTF8String]);
        return 0;
      }
                  error:&error];
  printOutcome(error);
  [object
      inDelegateReturnStringWithArg:^HRESULT(NSString **result) {
        *result = @"an answer";
        return 0;
      }
                              error:&error];
  printOutcome(error);

  printStep("Factory and statics");
  WRTTestClassBridge *made = [WRTTestClassBridge testFactoryFunctionWithError:&error];
  printf("    caller got      a %s\n", [NSStringFromClass([made class]) UTF8String]);
  [WRTTestClassBridge testStaticFunctionWithError:&error];
  printOutcome(error);

  [pool release];
  return 0;
}
