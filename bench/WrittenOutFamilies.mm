#include "bench/WrittenOutFamilies.h"

#include "bench/Cleanups.h"

#include <ObjCRuntime.h>
#include <WRTBridge.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/WRTIInspectableBridge.h>
#import <WRTObjcBridge/Windows.Media.Devices.h>
#include <abi/IAsyncOperation.abi.h>
#include <abi/IIterable.abi.h>
#include <abi/IIterator.abi.h>
#include <abi/IMap.abi.h>
#include <abi/IVector.abi.h>
#include <abi/Windows.Foundation.abi.h>
#include <abi/Windows.Media.Devices.abi.h>
#include <platform/IAsyncOperation.platform.h>
#include <platform/Windows.Foundation.platform.h>

using namespace wrt;
using bench::addCleanup;
using bench::newCleanups;
using bench::runCleanups;

namespace {

/// The end of every member: what was held goes, the caller learns of the failure.
void finish(void *interface, HRESULT status, NSError **error) {
  NSError *failure = status < 0 ? WRTCreateNSErrorFromHRESULT(status) : nil;
  WRTIUnknownRelease(interface);
  if (error)
    *error = failure;
}

} // namespace

@implementation WrittenVector

- (void *)_interfaceWithError:(NSError **)error {
  return [self queryInterfaceWithGUID:wrt::abi::IVector__1_WRTHSTRING::kIid error:error];
}

- (NSString *)getAtWithIndex:(unsigned int)index error:(NSError **)error {
  NSError *failure = nil;
  auto *vector =
      static_cast<wrt::abi::IVector__1_WRTHSTRING *>([self _interfaceWithError:&failure]);
  if (failure)
    return nil;
  HSTRING handle = nullptr;
  const HRESULT status = vector->GetAt(index, &handle);
  NSString *result = status < 0 ? nil : WRTCreateNSStringFromHSTRING(handle);
  finish(vector, status, error);
  return result;
}

- (NSArray *)getManyWithStartIndex:(unsigned int)start
                          capacity:(unsigned int)capacity
                             error:(NSError **)error {
  NSError *failure = nil;
  auto *vector =
      static_cast<wrt::abi::IVector__1_WRTHSTRING *>([self _interfaceWithError:&failure]);
  if (failure)
    return nil;
  auto *block = static_cast<HSTRING *>(WRTTaskMemAlloc(capacity * sizeof(HSTRING)));
  NSMutableArray *cleanups = newCleanups();
  addCleanup(cleanups, ^{
    WRTTaskMemFree(block);
  });
  unsigned int count = 0;
  NSMutableArray *result = nil;
  const HRESULT status = vector->GetMany(start, capacity, block, &count);
  if (status >= 0) {
    result = [[WRT_CLASS(NSMutableArray) alloc] init];
    for (int i = 0; i < static_cast<int>(count); ++i)
      [result addObject:WRTCreateNSStringFromHSTRING(block[i])];
  }
  runCleanups(cleanups);
  finish(vector, status, error);
  objc_release(cleanups);
  return [result autorelease];
}

@end

@implementation WrittenIterable

- (void *)_interfaceWithError:(NSError **)error {
  return [self queryInterfaceWithGUID:wrt::abi::IIterable__1_WRTRegionOfInterest_P::kIid
                                error:error];
}

- (id)firstWithError:(NSError **)error {
  NSError *failure = nil;
  auto *iterable = static_cast<wrt::abi::IIterable__1_WRTRegionOfInterest_P *>(
      [self _interfaceWithError:&failure]);
  if (failure)
    return nil;
  wrt::abi::IIterator__1_WRTRegionOfInterest_P *iterator = nullptr;
  const HRESULT status = iterable->First(&iterator);
  id result = status < 0 || !iterator ? nil : [WRT_CLASS(WrittenIterator) bridgeTransfer:iterator];
  finish(iterable, status, error);
  return result;
}

@end

@implementation WrittenIterator

- (void *)_interfaceWithError:(NSError **)error {
  return [self queryInterfaceWithGUID:wrt::abi::IIterator__1_WRTRegionOfInterest_P::kIid
                                error:error];
}

- (id)getCurrentWithError:(NSError **)error {
  NSError *failure = nil;
  auto *iterator = static_cast<wrt::abi::IIterator__1_WRTRegionOfInterest_P *>(
      [self _interfaceWithError:&failure]);
  if (failure)
    return nil;
  wrt::abi::IRegionOfInterest *current = nullptr;
  const HRESULT status = iterator->get_Current(&current);
  id result = status < 0 ? nil : [WRT_CLASS(WRTRegionOfInterestBridge) bridgeTransfer:current];
  finish(iterator, status, error);
  return result;
}

- (bool)getHasCurrentWithError:(NSError **)error {
  NSError *failure = nil;
  auto *iterator = static_cast<wrt::abi::IIterator__1_WRTRegionOfInterest_P *>(
      [self _interfaceWithError:&failure]);
  if (failure)
    return false;
  unsigned char has = 0;
  const HRESULT status = iterator->get_HasCurrent(&has);
  finish(iterator, status, error);
  return status >= 0 && has != 0;
}

- (bool)moveNextWithError:(NSError **)error {
  NSError *failure = nil;
  auto *iterator = static_cast<wrt::abi::IIterator__1_WRTRegionOfInterest_P *>(
      [self _interfaceWithError:&failure]);
  if (failure)
    return false;
  unsigned char has = 0;
  const HRESULT status = iterator->MoveNext(&has);
  finish(iterator, status, error);
  return status >= 0 && has != 0;
}

@end

@implementation WrittenMap

- (void *)_interfaceWithError:(NSError **)error {
  return [self queryInterfaceWithGUID:wrt::abi::IMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P::kIid
                                error:error];
}

- (id)lookupWithKey:(NSString *)key error:(NSError **)error {
  objc_retain(key);
  NSError *failure = nil;
  id result = nil;
  auto *map = static_cast<wrt::abi::IMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P *>(
      [self _interfaceWithError:&failure]);
  if (!failure) {
    HSTRING handle = WRTCreateHSTRINGFromNSString(key);
    NSMutableArray *cleanups = newCleanups();
    addCleanup(cleanups, ^{
      WRTHSTRINGRelease(handle);
    });
    wrt::abi::IVector__1_WRTHSTRING *value = nullptr;
    const HRESULT status = map->Lookup(handle, &value);
    if (status >= 0 && value)
      result = [WRT_CLASS(WRTIVector__1_WRTHSTRING_Bridge) bridgeTransfer:value];
    runCleanups(cleanups);
    finish(map, status, error);
    objc_release(cleanups);
  }
  objc_release(key);
  return result;
}

@end

@implementation WrittenValue

+ (void *)_staticsWithError:(NSError **)error {
  WRTHSTRINGHeader header;
  HSTRING name = nullptr;
  void *factory = nullptr;
  HRESULT status = WRTHSTRINGCreateReference(
      WRTPropertyValueClassString, WRTHSTRINGLength(WRTPropertyValueClassString), &header, &name);
  if (status >= 0)
    status = WRTGetActivationFactory(name, &wrt::abi::IPropertyValueStatics::kIid, &factory);
  if (error)
    *error = WRTCreateNSErrorFromHRESULT(status);
  return factory;
}

+ (id)createInt32WithValue:(int)value error:(NSError **)error {
  NSError *failure = nil;
  auto *statics = static_cast<wrt::abi::IPropertyValueStatics *>([self _staticsWithError:&failure]);
  if (failure)
    return nil;
  wrt::abi::IInspectable *object = nullptr;
  const HRESULT status = statics->CreateInt32(value, &object);
  id result =
      status < 0 || !object ? nil : [WRT_CLASS(WRTIInspectableBridge) bridgeTransfer:object];
  finish(statics, status, error);
  return result;
}

- (void *)_interfaceWithError:(NSError **)error {
  return [self queryInterfaceWithGUID:wrt::abi::IPropertyValue::kIid error:error];
}

- (int)getInt32WithError:(NSError **)error {
  NSError *failure = nil;
  auto *read = static_cast<wrt::abi::IPropertyValue *>([self _interfaceWithError:&failure]);
  if (failure)
    return 0;
  int value = 0;
  const HRESULT status = read->GetInt32(&value);
  finish(read, status, error);
  return value;
}

@end

@implementation WrittenOperation

- (void *)_interfaceWithError:(NSError **)error {
  return [self queryInterfaceWithGUID:wrt::abi::IAsyncOperation__1_WRTUINT32::kIid error:error];
}

- (void)setCompletedWithHandler:(id)handler error:(NSError **)error {
  objc_retain(handler);
  NSError *failure = nil;
  auto *operation =
      static_cast<wrt::abi::IAsyncOperation__1_WRTUINT32 *>([self _interfaceWithError:&failure]);
  if (!failure) {
    HRESULT (^block)(id, int) = handler;
    id adapter = objc_retainBlock(^HRESULT(void *raw, int asyncStatus) {
      id bridge = objc_retain([WRT_CLASS(WrittenOperation) bridge:raw]);
      const HRESULT answer = block(bridge, asyncStatus);
      objc_release(bridge);
      return answer;
    });
    void *delegate = WRTIAsyncOperationCompletedHandler__1_WRTUINT32FromBlock(adapter);
    NSMutableArray *cleanups = newCleanups();
    addCleanup(cleanups, ^{
      WRTIUnknownRelease(delegate);
    });
    objc_release(adapter);
    const HRESULT status = operation->put_Completed(
        static_cast<wrt::abi::IAsyncOperationCompletedHandler__1_WRTUINT32 *>(delegate));
    runCleanups(cleanups);
    finish(operation, status, error);
    objc_release(cleanups);
  }
  objc_release(handler);
}

- (unsigned int)getResultsWithError:(NSError **)error {
  NSError *failure = nil;
  auto *operation =
      static_cast<wrt::abi::IAsyncOperation__1_WRTUINT32 *>([self _interfaceWithError:&failure]);
  if (failure)
    return 0;
  unsigned int value = 0;
  const HRESULT status = operation->GetResults(&value);
  finish(operation, status, error);
  return value;
}

@end
