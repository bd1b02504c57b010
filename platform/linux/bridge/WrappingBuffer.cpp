#include "platform/linux/components/streams/ByteBuffer.h"

#include <WRTBridge.h>

using namespace wrt;

WRT_DLLEXPORT void *WRTCreateBufferWrappingBytes(void *bytes, uint32_t length) {
  // Room alone, as a new buffer is: whoever passes it on says how much of it is content.
  abi::IBuffer *buffer =
      implement::make<components::ByteBuffer>(static_cast<uint8_t *>(bytes), length, 0).detach();
  return buffer;
}

WRT_DLLEXPORT GUID WRTIBufferByteAccessGetUUID() { return abi::IBufferByteAccess::kIid; }

WRT_DLLEXPORT HRESULT WRTIBufferByteAccessBuffer(void *byteAccess, uint8_t **bytes) {
  return static_cast<abi::IBufferByteAccess *>(byteAccess)->Buffer(bytes);
}
