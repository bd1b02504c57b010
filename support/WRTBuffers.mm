#import <WRTSupport/WRTBuffers.h>

#import <WRTSupport/WRTAsking.h>

#include "support/implement/Failure.h"

#include <WRTBridge.h>
#include <string.h>

using namespace wrt;

namespace {

/// The buffer's bytes, borrowed from it; null is none for a `length` beyond 0.
HRESULT bytesOf(id<WRTIBufferBridge> buffer, uint32_t length, uint8_t **bytes) {
  const GUID iid = WRTIBufferByteAccessGetUUID();
  void *access = nullptr;
  HRESULT status = WRTIUnknownQueryInterface([buffer inner], &iid, &access);
  if (status < 0)
    return status;
  if (!access)
    return status::kNoInterface;
  status = WRTIBufferByteAccessBuffer(access, bytes);
  WRTIUnknownRelease(access);
  return status < 0 || *bytes || length == 0 ? status : status::kPointer;
}

} // namespace

id<WRTIBufferBridge> WRTBufferFromData(NSData *data, NSError **error) {
  if (!data || [data length] > UINT32_MAX) {
    support::store(data ? status::kInvalidArgument : status::kPointer, error);
    return nil;
  }
  const auto length = static_cast<uint32_t>([data length]);
  NSError *failure = nil;
  WRTBufferBridge *buffer =
      WRTTry([WRTBufferBridge createWithCapacity:length error:&failure], &failure);
  uint8_t *bytes = nullptr;
  if (buffer && !failure)
    failure = WRTCreateNSErrorFromHRESULT(bytesOf(buffer, length, &bytes));
  if (buffer && !failure) {
    if (bytes && length != 0)
      memcpy(bytes, [data bytes], length);
    [buffer setLengthWithValue:length error:&failure];
  }
  if (error)
    *error = failure;
  return failure ? nil : buffer;
}

NSData *WRTDataFromBuffer(id<WRTIBufferBridge> buffer, NSError **error) {
  NSError *failure = nil;
  uint32_t length = 0;
  uint8_t *bytes = nullptr;
  if (!buffer) {
    failure = WRTCreateNSErrorFromHRESULT(status::kPointer);
  } else {
    length = WRTTry([buffer getLengthWithError:&failure], &failure);
    if (!failure)
      failure = WRTCreateNSErrorFromHRESULT(bytesOf(buffer, length, &bytes));
  }
  if (error)
    *error = failure;
  return failure ? nil : [NSData dataWithBytes:bytes length:length];
}
