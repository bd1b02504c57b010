#include "platform/linux/tests/LedgerTest.h"

#include <WRTBridge.h>
#include <WRTStatus.h>

namespace wrt::test {
namespace {

class Bridge : public LedgerTest {};

TEST_F(Bridge, TaskMemoryOfNoBytesIsABlockToo) {
  void *first = WRTTaskMemAlloc(0);
  void *second = WRTTaskMemAlloc(0);
  ASSERT_NE(first, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(change(), "task blocks +2");
  WRTTaskMemFree(first);
  WRTTaskMemFree(second);
  WRTTaskMemFree(nullptr);
}

/// Calls a member of a WinRT interface by its slot.
template <class... Arguments>
HRESULT callSlot(void *object, int slot, Arguments... arguments) {
  using Function = HRESULT(WRT_ABI *)(void *, Arguments...);
  return (*static_cast<Function **>(object))[slot](object, arguments...);
}

TEST_F(Bridge, BufferWrapsTheBytesOfTheCaller) {
  constexpr int kCapacitySlot = 6;
  constexpr int kLengthSlot = 7;
  constexpr int kPutLengthSlot = 8;
  uint8_t bytes[5] = {1, 2, 3, 4, 5};
  void *buffer = WRTCreateBufferWrappingBytes(bytes, sizeof(bytes));
  ASSERT_NE(buffer, nullptr);
  uint32_t value = 0;
  EXPECT_EQ(callSlot(buffer, kCapacitySlot, &value), status::kOk);
  EXPECT_EQ(value, 5u);
  EXPECT_EQ(callSlot(buffer, kPutLengthSlot, uint32_t{6}), status::kInvalidArgument);
  EXPECT_EQ(callSlot(buffer, kLengthSlot, &value), status::kOk);
  EXPECT_EQ(value, 0u);
  EXPECT_EQ(callSlot(buffer, kPutLengthSlot, uint32_t{2}), status::kOk);
  EXPECT_EQ(callSlot(buffer, kLengthSlot, &value), status::kOk);
  EXPECT_EQ(value, 2u);

  const GUID iid = WRTIBufferByteAccessGetUUID();
  void *access = nullptr;
  ASSERT_EQ(WRTIUnknownQueryInterface(buffer, &iid, &access), status::kOk);
  uint8_t *found = nullptr;
  EXPECT_EQ(WRTIBufferByteAccessBuffer(access, &found), status::kOk);
  EXPECT_EQ(found, bytes);
  EXPECT_EQ(WRTIUnknownAddRef(access), 3u);
  EXPECT_EQ(WRTIUnknownRelease(access), 2u);
  WRTIUnknownSafeRelease(access);
  WRTIUnknownSafeRelease(nullptr);
  EXPECT_EQ(WRTIUnknownRelease(buffer), 0u);
}

} // namespace
} // namespace wrt::test
