// An application of the installed library. Its argument is a library with a component, the class
// behind WRTTestClassBridge, which no installation has.
#if defined(AS_MODULE)
@import WRTObjcBridge;
#import <WRTObjcBridge/test.h>
#else
#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/WRTErrors.h>
#import <WRTObjcBridge/WRTHSTRINGBridge.h>
#import <WRTObjcBridge/WRTOwnership.h>
#import <WRTObjcBridge/test.h>
#endif

#include <dlfcn.h>
#include <stdio.h>

static int failures;

static void expect(BOOL holds, const char *what) {
  if (!holds) {
    fprintf(stderr, "application: %s\n", what);
    ++failures;
  }
}

int main(int count, char **arguments) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  expect([[[WRTTestClassBridge alloc] init] autorelease] == nil,
         "a class without a component is activated");

  if (count != 2 || !dlopen(arguments[1], RTLD_NOW)) {
    fprintf(stderr, "application: no component: %s\n",
            count == 2 ? dlerror() : "one argument is wanted");
    return 2;
  }
  NSError *error = nil;
  WRTTestClassBridge *object = [[[WRTTestClassBridge alloc] init] autorelease];
  expect(object != nil, "the component cannot be activated");
  expect([object returnPrimitiveWithError:&error] != 0 && !error, "no number comes back");
  WRTTestStruct structure = [object returnStructWithError:&error];
  expect((structure.x != 0 || structure.y != 0) && !error, "no structure comes back");
  NSArray<NSString *> *strings = [object returnStringArrayWithError:&error];
  expect([strings count] != 0 && !error, "no strings come back");

  __block int calls = 0;
  [object
      inDelegateReturnStringWithArg:^HRESULT(NSString **result) {
        ++calls;
        *result = @"an answer";
        return 0;
      }
                              error:&error];
  expect(calls == 1 && !error, "the block is not called");

  NSString *text = @"Grüße 😀";
  WRTHSTRINGBridge *held = [WRTHSTRINGBridge createWithString:text];
  expect([[[WRTHSTRINGBridge bridge:[held hstring]] string] isEqual:text],
         "a string is not the same");
  NSError *failure = WRTCreateNSErrorFromHRESULT((HRESULT)0x80004005);
  expect([failure code] == WRTErrorFail && [[failure domain] isEqual:WRTErrorDomain],
         "an error has another code or domain");
  expect(WRTHSTRINGRelease(WRTCreateHSTRINGFromNSString(text)) == 0, "a handle cannot be released");
  void *identity = [object _WRTIUnknownWithError:&error];
  expect(identity && WRTIUnknownAddRef(identity) > 1 && WRTIUnknownRelease(identity) > 0,
         "references are not counted");
  WRTIUnknownRelease(identity);
  WRTTaskMemFree(NULL);

  BOOL caught = NO;
  @try {
    [[NSArray array] objectAtIndex:1];
  } @catch (NSException *exception) {
    caught = [[exception name] isEqual:NSRangeException];
  }
  expect(caught, "an exception is not caught");

  printf("application: %d failures\n", failures);
  [pool release];
  return failures != 0;
}
