/// The results of stream operations, and access to buffers' bytes.
#ifndef WRT_STREAM_TYPES_H
#define WRT_STREAM_TYPES_H

#include "platform/linux/components/generic/Types.h"
#include "platform/linux/implement/ComPtr.h"

#include <abi/IAsyncOperation.abi.h>
#include <abi/IAsyncOperationWithProgress.abi.h>
#include <abi/Windows.Storage.Streams.abi.h>

#include <algorithm>
#include <span>

namespace wrt::components {

using namespace implement;

using BufferRef = Ref<abi::IBuffer>;
using StreamRef = Ref<abi::IRandomAccessStream>;
using TypedStreamRef = Ref<abi::IRandomAccessStreamWithContentType>;
using InputStreamRef = Ref<abi::IInputStream>;

/// The buffer's room (`get_Capacity`) or content (`get_Length`), borrowed from it. Fails with
/// `E_INVALIDARG` for null and for a buffer whose bytes cannot be had.
WRT_DLLEXPORT HRESULT roomOf(abi::IBuffer *buffer, std::span<uint8_t> *bytes);
HRESULT contentOf(abi::IBuffer *buffer, std::span<const uint8_t> *bytes);

/// A new buffer with room for `capacity` bytes, all zero, and no content. Null when memory runs
/// out.
WRT_DLLEXPORT ComPtr<abi::IBuffer> makeBuffer(uint32_t capacity);

} // namespace wrt::components

#endif
