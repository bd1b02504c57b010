#ifndef WRT_TESTS_SCRIPTED_STREAM_H
#define WRT_TESTS_SCRIPTED_STREAM_H

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/components/async/ThreadPool.h"
#include "platform/linux/components/streams/StreamTypes.h"
#include "platform/linux/implement/Implements.h"

#include <abi/Windows.Foundation.abi.h>

namespace wrt::test {

using namespace implement;
using namespace components;

/// What a scripted stream and a reference to it do. A status that is negative makes the step fail;
/// where a handler is installed or the size is asked for, `E_NOINTERFACE` takes the interface away.
/// It outlasts the steps that still run on the pool, however its cell ends.
struct StreamScript {
  ~StreamScript() { waitForPool(); }

  HRESULT openStart = 0;   ///< OpenReadAsync itself
  HRESULT openResult = 0;  ///< its operation
  HRESULT openHandler = 0; ///< installing a handler on that
  HRESULT sizeStatus = 0;
  uint64_t size = 0;
  HRESULT readStart = 0;
  HRESULT readResult = 0;
  HRESULT readHandler = 0;
  uint32_t delivered = 0;  ///< bytes that a read delivers, each 0x5A
  bool bareBuffer = false; ///< the read's buffer does not hand out its bytes
  HRESULT writeStart = 0;
  HRESULT writeResult = 0;
  HRESULT writeHandler = 0;
  HRESULT lengthStatus = 0;    ///< setting the length of the buffer to write
  HRESULT referenceStatus = 0; ///< making a reference to the stream

  // What was asked for.
  const uint8_t *written = nullptr; ///< the bytes that a write was given, borrowed
  uint32_t capacity = 0;
  uint32_t count = 0;
  int options = -1;
  uint32_t length = 0;
};

ComPtr<abi::IRandomAccessStreamReference> makeReference(StreamScript &script);
/// A buffer whose bytes cannot be had: it lacks the interface, or the interface fails.
ComPtr<abi::IBuffer> makeBareBuffer();
ComPtr<abi::IBuffer> makeFailingBuffer();

/// The script of the streams that are activated, the references made to them and the buffers that
/// are wrapped around bytes as long as it lives.
class ActiveScript {
public:
  explicit ActiveScript(StreamScript &script);
  ~ActiveScript();

private:
  const activation::Registration streams_, references_;
};

} // namespace wrt::test

#endif
