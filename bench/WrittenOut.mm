#include "bench/WrittenOut.h"

#include "bench/Cleanups.h"

#include <ObjCRuntime.h>
#include <WRTBridge.h>
#import <WRTObjcBridge/WRTConversions.h>
#include <abi/test.abi.h>
#include <platform/test.platform.h>

namespace {

using wrt::abi::TestInterface;
using wrt::bench::addCleanup;
using wrt::bench::newCleanups;
using wrt::bench::runCleanups;

TestInterface *abi(WRTTestInterface *interface) {
  return reinterpret_cast<TestInterface *>(interface);
}

} // namespace

@implementation WrittenOut

+ (void *)activateInstance {
  return WRTActivateInstance(WRTTestClassClassString);
}

- (WRTTestInterface *)_WRTTestInterfaceWithError:(NSError **)error {
  return static_cast<WRTTestInterface *>([self queryInterfaceWithGUID:TestInterface::kIid
                                                                error:error]);
}

- (void)voidFunctionWithError:(NSError **)error {
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (failure)
    return;
  const HRESULT status = abi(interface)->VoidFunction();
  if (status < 0)
    failure = WRTCreateNSErrorFromHRESULT(status);
  WRTIUnknownRelease(interface);
  if (error)
    *error = failure;
}

- (int)returnPrimitiveWithError:(NSError **)error {
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (failure)
    return 0;
  int result = 0;
  const HRESULT status = abi(interface)->ReturnPrimitive(&result);
  if (status < 0)
    failure = WRTCreateNSErrorFromHRESULT(status);
  WRTIUnknownRelease(interface);
  if (error)
    *error = failure;
  return result;
}

- (void)inPrimitiveWithX:(int)x error:(NSError **)error {
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (failure)
    return;
  const HRESULT status = abi(interface)->InPrimitive(x);
  if (status < 0)
    failure = WRTCreateNSErrorFromHRESULT(status);
  WRTIUnknownRelease(interface);
  if (error)
    *error = failure;
}

- (NSString *)returnStringWithError:(NSError **)error {
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (failure)
    return nil;
  HSTRING handle = nullptr;
  NSString *result = nil;
  const HRESULT status = abi(interface)->ReturnString(&handle);
  if (status < 0)
    failure = WRTCreateNSErrorFromHRESULT(status);
  else
    result = WRTCreateNSStringFromHSTRING(handle);
  WRTIUnknownRelease(interface);
  if (error)
    *error = failure;
  return result;
}

- (void)inStringWithArg:(NSString *)arg error:(NSError **)error {
  objc_retain(arg);
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (!failure) {
    HSTRING handle = WRTCreateHSTRINGFromNSString(arg);
    NSMutableArray *cleanups = newCleanups();
    addCleanup(cleanups, ^{
      WRTHSTRINGRelease(handle);
    });
    const HRESULT status = abi(interface)->InString(handle);
    if (status < 0)
      failure = WRTCreateNSErrorFromHRESULT(status);
    runCleanups(cleanups);
    WRTIUnknownRelease(interface);
    if (error)
      *error = failure;
    objc_release(cleanups);
  }
  objc_release(arg);
}

- (id)returnInterfaceWithError:(NSError **)error {
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (failure)
    return nil;
  TestInterface *object = nullptr;
  id result = nil;
  const HRESULT status = abi(interface)->ReturnInterface(&object);
  if (status < 0)
    failure = WRTCreateNSErrorFromHRESULT(status);
  else if (object)
    result = [WRT_CLASS(WRTTestInterfaceBridge) bridgeTransfer:object];
  WRTIUnknownRelease(interface);
  if (error)
    *error = failure;
  return result;
}

- (void)inInterfaceWithArg:(id)arg error:(NSError **)error {
  objc_retain(arg);
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (!failure) {
    WRTTestInterface *object = [arg _WRTTestInterfaceWithError:&failure];
    NSMutableArray *cleanups = nil;
    if (!failure) {
      cleanups = newCleanups();
      addCleanup(cleanups, ^{
        WRTIUnknownRelease(object);
      });
      const HRESULT status = abi(interface)->InInterface(abi(object));
      if (status < 0)
        failure = WRTCreateNSErrorFromHRESULT(status);
    }
    runCleanups(cleanups);
    WRTIUnknownRelease(interface);
    if (error)
      *error = failure;
    objc_release(cleanups);
  }
  objc_release(arg);
}

- (WRTTestStruct)returnStructWithError:(NSError **)error {
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  WRTTestStruct result{};
  if (failure)
    return result;
  const HRESULT status = abi(interface)->ReturnStruct(&result);
  if (status < 0)
    failure = WRTCreateNSErrorFromHRESULT(status);
  WRTIUnknownRelease(interface);
  if (error)
    *error = failure;
  return result;
}

- (void)inStringArrayWithArr:(NSArray *)arr error:(NSError **)error {
  objc_retain(arr);
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (!failure) {
    const int count = static_cast<int>([arr count]);
    auto *block = static_cast<HSTRING *>(WRTTaskMemAlloc([arr count] * sizeof(HSTRING)));
    NSMutableArray *cleanups = newCleanups();
    addCleanup(cleanups, ^{
      WRTTaskMemFree(block);
    });
    for (NSUInteger i = 0; i < [arr count]; ++i) {
      block[i] = WRTCreateHSTRINGFromNSString([arr objectAtIndexedSubscript:i]);
      addCleanup(cleanups, ^{
        WRTHSTRINGRelease(block[i]);
      });
    }
    const HRESULT status = abi(interface)->InStringArray(count, block);
    if (status < 0)
      failure = WRTCreateNSErrorFromHRESULT(status);
    runCleanups(cleanups);
    WRTIUnknownRelease(interface);
    if (error)
      *error = failure;
    objc_release(cleanups);
  }
  objc_release(arr);
}

- (void)outStringArrayPreallocatedWithSize:(int)size
                                       arr:(NSMutableArray *)arr
                                     error:(NSError **)error {
  objc_retain(arr);
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (!failure) {
    auto *block =
        static_cast<HSTRING *>(WRTTaskMemAlloc(static_cast<size_t>(size) * sizeof(HSTRING)));
    NSMutableArray *cleanups = newCleanups();
    addCleanup(cleanups, ^{
      WRTTaskMemFree(block);
    });
    int count = 0;
    const HRESULT status = abi(interface)->OutStringArrayPreallocated(size, &count, block);
    if (status < 0) {
      failure = WRTCreateNSErrorFromHRESULT(status);
    } else {
      [arr removeAllObjects];
      for (int i = 0; i < count; ++i) {
        [arr addObject:WRTCreateNSStringFromHSTRING(block[i])];
        WRTHSTRINGRelease(block[i]);
      }
    }
    runCleanups(cleanups);
    WRTIUnknownRelease(interface);
    if (error)
      *error = failure;
    objc_release(cleanups);
  }
  objc_release(arr);
}

- (void)inDelegateWithArg:(id)arg error:(NSError **)error {
  objc_retain(arg);
  NSError *failure = nil;
  WRTTestInterface *interface = [self _WRTTestInterfaceWithError:&failure];
  if (!failure) {
    HRESULT (^handler)(int, NSString *, id, id) = arg;
    id adapter =
        objc_retainBlock(^HRESULT(int x, HSTRING s, WRTTestInterface *i, WRTTestInterface *c) {
          NSString *string = objc_retain(WRTCreateNSStringFromHSTRING(s));
          id first = objc_retain([WRT_CLASS(WRTTestInterfaceBridge) bridge:i]);
          id second = objc_retain([WRT_CLASS(WRTTestClassBridge) bridge:c]);
          const HRESULT status = handler(x, string, first, second);
          objc_release(second);
          objc_release(first);
          objc_release(string);
          return status;
        });
    void *delegate = WRTTestDelegateFromBlock(adapter);
    NSMutableArray *cleanups = newCleanups();
    addCleanup(cleanups, ^{
      WRTIUnknownRelease(delegate);
    });
    objc_release(adapter);
    const HRESULT status =
        abi(interface)->InDelegate(static_cast<wrt::abi::TestDelegate *>(delegate));
    if (status < 0)
      failure = WRTCreateNSErrorFromHRESULT(status);
    runCleanups(cleanups);
    WRTIUnknownRelease(interface);
    if (error)
      *error = failure;
    objc_release(cleanups);
  }
  objc_release(arg);
}

@end
