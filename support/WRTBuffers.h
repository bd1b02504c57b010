/// Bytes in buffers, without a stream:
///
///     id<WRTIBufferBridge> buffer = WRTBufferFromData(data, &error);
///     NSData *bytes = WRTDataFromBuffer([reader readBufferWithLength:16 error:&error], &error);
#ifndef WRT_BUFFERS_H
#define WRT_BUFFERS_H

#import <WRTObjcBridge/Windows.Storage.Streams.h>
#import <WRTSupport/WRTSupportBase.h>

WRT_EXTERN_C_BEGIN

/// A new buffer with a copy of the bytes, autoreleased; nil and an error for nil (`E_POINTER`), for
/// 4 GiB and more (`E_INVALIDARG`), and when memory runs out. Any thread.
WRT_SUPPORT_API
id<WRTIBufferBridge> _Nullable WRTBufferFromData(NSData *_Nullable data,
                                                 NSError *_Nullable *_Nullable error);
/// A copy of as many bytes as the buffer's length says, autoreleased; nil and an error for nil
/// (`E_POINTER`) and for a buffer that does not hand its bytes out (`E_NOINTERFACE`). Any thread
/// that may use the buffer.
WRT_SUPPORT_API NSData *_Nullable WRTDataFromBuffer(id<WRTIBufferBridge> _Nullable buffer,
                                                    NSError *_Nullable *_Nullable error);

WRT_EXTERN_C_END

#endif
