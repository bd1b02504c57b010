// The only part of core that uses generated bridges: it is written in terms of the streams' public
// methods.

#import <WRTObjcBridge/WRTBufferConversions.h>

#import <WRTObjcBridge/IAsyncOperation.h>
#import <WRTObjcBridge/IAsyncOperationWithProgress.h>
#import <WRTObjcBridge/Windows.Storage.Streams.h>

#include "core/Log.h"
#include "core/Retained.h"

#include <ClassReceiver.h>
#include <DispatchSemaphore.h>
#include <WRTBridge.h>
#include <WRTObjcBridge/WRTConversions.h>
#include <WRTStatus.h>

namespace log = wrt::log;

namespace {

using Wrote = id<WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge>;
using Opened = id<WRTIAsyncOperation__1_WRTIRandomAccessStreamWithContentType_P_Bridge>;
using Read = id<WRTIAsyncOperationWithProgress__2_WRTIBuffer_P_WRTUINT32_Bridge>;

/// The context of the messages of this file.
XPLogContext logContext;

/// Lets one thread wait for a block that runs on another.
class Semaphore {
public:
  /// Borrowed. Blocks capture it as an object, so that each keeps a reference of its own.
  id get() const { return semaphore_.get(); }
  void wait() const { __zorvex_dispatch_semaphore_wait(get(), ZORVEX_DISPATCH_TIME_FOREVER); }

private:
  wrt::Retained<> semaphore_ = wrt::Retained<>::adopt(__zorvex_dispatch_semaphore_create(0));
};

constexpr const char *kToStream = "WRTCreateWRTRandomAccessReferenceBridgeFromNSData";
constexpr const char *kToData = "WRTCreateNSDataFromRandomAccessStreamReference";
constexpr const char *kOpened = "WRTCreateNSDataFromRandomAccessStreamReference_block_invoke";
constexpr const char *kRead = "WRTCreateNSDataFromRandomAccessStreamReference_block_invoke_2";

void logFailure(const char *function, int line, NSString *text) {
  log::write(log::kFailure, logContext, function, line, text);
}

/// What an error variable holds before a call whose success must be told from one that found no
/// interface: success alone clears it.
NSError *notCalled() { return WRTCreateNSErrorFromHRESULT(wrt::status::kNoInterface); }

/// Leaves the bytes where a write that may have started can read them: nobody will tell when it is
/// done with them.
void keepForGood(NSData *bytes) { objc_retain(bytes); }

/// Ends the wait for a stream that could not be read.
HRESULT failOpening(id semaphore, int line, NSString *text) {
  logFailure(kOpened, line, text);
  __zorvex_dispatch_semaphore_signal(semaphore);
  return 0;
}

} // namespace

NSData *WRTCreateNSDataFromIBuffer(WRTIBuffer *buffer, unsigned long long length) {
  const GUID iid = WRTIBufferByteAccessGetUUID();
  void *byteAccess = nullptr;
  HRESULT status = WRTIUnknownQueryInterface(buffer, &iid, &byteAccess);
  if (status < 0) {
    log::write(log::kFatal, logContext, __func__, __LINE__, @"%s: 0x%lx",
               "Failed to get BufferByteAccess interface on IBuffer object",
               static_cast<unsigned long>(static_cast<uint32_t>(status)));
    XPAbortWithBacktrace();
  }
  NSData *data = nil;
  uint8_t *bytes = nullptr;
  if (byteAccess)
    status = WRTIBufferByteAccessBuffer(byteAccess, &bytes);
  if (status < 0 || !byteAccess || (!bytes && static_cast<uint32_t>(length) > 0))
    logFailure(__func__, __LINE__, @"Failed buffer byte access");
  else
    data = [WRT_CLASS(NSData) dataWithBytes:bytes length:static_cast<uint32_t>(length)];
  WRTIUnknownSafeRelease(byteAccess);
  return data;
}

WRTRandomAccessStreamReferenceBridge *
WRTCreateWRTRandomAccessReferenceBridgeFromNSData(NSData *data) {
  // The stream reads these bytes on another thread; they must not move or go before it is done.
  const wrt::Retained<NSMutableData *> copy([WRT_CLASS(NSMutableData) dataWithData:data]);
  const auto length = static_cast<uint32_t>([copy.get() length]);
  WRTIBufferBridge *buffer = [WRT_CLASS(WRTIBufferBridge)
      bridgeTransfer:WRTCreateBufferWrappingBytes([copy.get() mutableBytes], length)];
  NSError *error = nil;
  [buffer setLengthWithValue:length error:&error];
  const auto stream = wrt::Retained<WRTInMemoryRandomAccessStreamBridge *>::adopt(
      [[WRT_CLASS(WRTInMemoryRandomAccessStreamBridge) alloc] init]);
  error = notCalled();
  const Wrote operation = [stream.get() writeAsyncWithBuffer:buffer error:&error];
  // Without an operation nobody would ever end the wait.
  if (error || !operation) {
    logFailure(kToStream, __LINE__,
               @"Failed [WRTInMemoryRandomAccessStreamBridge writeAsyncWithBuffer:]");
    if (!error)
      keepForGood(copy.get());
    return nil;
  }
  const Semaphore done;
  const id semaphore = done.get();
  error = notCalled();
  if (semaphore)
    [operation
        setCompletedWithHandler:^HRESULT(Wrote, int) {
          __zorvex_dispatch_semaphore_signal(semaphore);
          return 0;
        }
                          error:&error];
  if (error) {
    logFailure(kToStream, __LINE__, @"Failed writing data");
    keepForGood(copy.get());
    return nil;
  }
  done.wait();
  return [WRT_CLASS(WRTRandomAccessStreamReferenceBridge) createFromStreamWithStream:stream.get()
                                                                               error:&error];
}

NSData *WRTCreateNSDataFromRandomAccessStreamReference(
    id<WRTIRandomAccessStreamReferenceBridge> reference) {
  NSError *error = nil;
  const Opened opening = [reference openReadAsyncWithError:&error];
  if (!opening || error) {
    logFailure(kToData, __LINE__, @"Failed [WRTRandomAccessStreamReferenceBridge openReadAsync]");
    return nil;
  }
  __block wrt::Retained<NSData *> result;
  const Semaphore done;
  const id semaphore = done.get();
  if (!semaphore)
    return nil;

  error = notCalled();
  [opening
      setCompletedWithHandler:^HRESULT(Opened opened, int) {
        NSError *problem = nil;
        const id raw = [opened getResultsWithError:&problem];
        if (!raw || problem)
          return failOpening(semaphore, __LINE__, @"Failed fetching rawStream");
        problem = notCalled();
        WRTIRandomAccessStreamBridge *stream = [WRT_CLASS(WRTIRandomAccessStreamBridge) cast:raw];
        const unsigned long long size = [stream getSizeWithError:&problem];
        if (problem)
          return failOpening(semaphore, __LINE__, @"Failed fetching size of randomAccessStream");
        const auto count = static_cast<uint32_t>(size);
        WRTIInputStreamBridge *input = [WRT_CLASS(WRTIInputStreamBridge) cast:raw];
        WRTBufferBridge *buffer = [WRT_CLASS(WRTBufferBridge) createWithCapacity:count
                                                                           error:&problem];
        const Read reading = [input readAsyncWithBuffer:buffer
                                                  count:count
                                                options:WRTInputStreamOptionsNone
                                                  error:&problem];
        // Without an operation nobody would ever end the wait.
        if (problem || !reading)
          return failOpening(semaphore, __LINE__, @"Failed initiating ReadAsync on inputStream");
        problem = notCalled();
        [reading
            setCompletedWithHandler:^HRESULT(Read read, int) {
              NSError *failure = nil;
              const id<WRTIBufferBridge> filled = [read getResultsWithError:&failure];
              WRTIBuffer *interface = [filled _WRTIBufferWithError:&failure];
              if (failure || !interface) {
                logFailure(kRead, __LINE__, @"Failed to get buffer");
              } else {
                result.replace([WRTCreateNSDataFromIBuffer(interface, size) retain]);
                WRTIUnknownRelease(interface);
              }
              __zorvex_dispatch_semaphore_signal(semaphore);
              return 0;
            }
                              error:&problem];
        return problem ? failOpening(semaphore, __LINE__, @"Failed to install handler in read op")
                       : 0;
      }
                        error:&error];
  if (!error)
    done.wait();
  return [[result.get() retain] autorelease];
}
