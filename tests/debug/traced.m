// What the trace is to show, one crossing of each sort after the other. Ends with 1 when a call
// does something else than without the trace.

#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/test.h>

#include <pthread.h>
#include <stdio.h>

static int wrong;
#define EXPECT(holds) ((holds) ? (void)0 : (void)(wrong = 1, printf("traced: wrong: %s\n", #holds)))

static NSError *error;
static WRTTestClassBridge *object;

static void *onAnotherThread(void *kept) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  *(id *)kept = [[WRTUriBridge createUriWithUri:@"a:other" error:NULL] retain];
  [pool release];
  return NULL;
}

static void callBlocks(void) {
  [object
      inDelegateWithArg:^HRESULT(int x, NSString *s, id<WRTTestInterfaceBridge> i,
                                 WRTTestClassBridge *c) {
        (void)x, (void)s, (void)i, (void)c;
        NSError *inner = nil;
        [object inPrimitiveWithX:-3 error:&inner];
        return 1;
      }
                  error:&error];
  [object
      inDelegateReturnStringWithArg:^HRESULT(NSString **result) {
        *result = @"an answer";
        return 0;
      }
                              error:&error];
  [object
      inDelegateReturnStringWithArg:^HRESULT(NSString **result) {
        (void)result;
        [NSException raise:@"Refusal" format:@"not today"];
        return 0;
      }
                              error:&error];
  EXPECT(error == nil || [error code] < 0);
}

int main(void) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  object = [[[WRTTestClassBridge alloc] init] autorelease];
  [object inStringWithArg:@"Grüße \"\n" error:&error];
  EXPECT(!error);
  [object inStringArrayWithArr:[NSArray arrayWithObjects:@"one", @"two", nil] error:&error];
  int number = 0;
  [object outPrimitiveWithX:&number error:&error];
  EXPECT(number != 0);
  WRTTestStruct point = [object returnStructWithError:&error];
  EXPECT(point.x != 0);
  EXPECT(![WRTUriBridge createUriWithUri:@"no address" error:&error] && error);
  callBlocks();
  EXPECT(![WRTUriBridge activateInstance]);

  NSError *const mark = [NSError errorWithDomain:@"mark" code:1 userInfo:nil];
  error = mark;
  WRTUriBridge *miscast = [WRTUriBridge cast:object];
  EXPECT([miscast getPortWithError:&error] == 0 && error == mark);
  EXPECT([miscast getPortWithError:NULL] == 0);
  @try {
    [object inInterfaceWithArg:(id) @"no bridge" error:&error];
    EXPECT(!"an exception passes");
  } @catch (NSException *exception) {
    EXPECT(error == mark);
  }
  pthread_t thread;
  WRTUriBridge *kept = nil;
  pthread_create(&thread, NULL, onAnotherThread, &kept);
  pthread_join(thread, NULL);
  EXPECT([[kept getPathWithError:NULL] isEqual:@"other"]);
  [pool release];
  return wrong;
}
