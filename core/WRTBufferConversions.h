#ifndef WRT_BUFFER_CONVERSIONS_H
#define WRT_BUFFER_CONVERSIONS_H

#import <Foundation/Foundation.h>
#include <WRTObjcBridge/WRTTypes.h>

@class WRTRandomAccessStreamReferenceBridge;
@protocol WRTIRandomAccessStreamReferenceBridge;

WRT_EXTERN_C_BEGIN

struct WRTIBuffer;

/// A copy of the buffer's first `length` bytes, autoreleased; nil when it does not hand them out.
/// `buffer` is borrowed. The buffer's own length is not asked; of `length` the low 32 bits count. A
/// buffer without byte access (`IBufferByteAccess`) ends the process.
WRT_BRIDGE_API NSData *_Nullable WRTCreateNSDataFromIBuffer(struct WRTIBuffer *_Nonnull buffer,
                                                            unsigned long long length);

/// A reference, autoreleased, to a stream in memory that holds a copy of the bytes; nil when it
/// cannot be written to. Waits without time limit until the bytes are written, so it must not be
/// called on a thread that this needs. A write that fails later leaves a shorter stream.
WRT_BRIDGE_API WRTRandomAccessStreamReferenceBridge
    *_Nullable WRTCreateWRTRandomAccessReferenceBridgeFromNSData(NSData *_Nullable data);

/// The whole content of the stream behind `reference`, autoreleased; nil when it cannot be opened
/// or read. Any object will do that answers `openReadAsyncWithError:`. As long as the stream says
/// that it is, even if less could be read; of sizes beyond 4 GiB the low 32 bits count. Waits
/// without time limit until the stream is read, so it must not be called on a thread that this
/// needs.
WRT_BRIDGE_API NSData *_Nullable WRTCreateNSDataFromRandomAccessStreamReference(
    id<WRTIRandomAccessStreamReferenceBridge> _Nullable reference);

WRT_EXTERN_C_END

#if !defined(WRT_BUILDING_BRIDGE)
#import <WRTObjcBridge/Windows.Storage.Streams.h>
#endif

#endif
