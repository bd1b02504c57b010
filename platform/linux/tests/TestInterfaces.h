/// Interfaces of the kind that the generator emits, for the tests of this folder.
#ifndef WRT_TEST_INTERFACES_H
#define WRT_TEST_INTERFACES_H

#include <WRTAbi.h>

namespace wrt::test {

struct INamed : abi::IInspectable {
  static constexpr GUID kIid{0x7E570001, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}};

  virtual HRESULT WRT_ABI get_Name(HSTRING *value) = 0;
  virtual HRESULT WRT_ABI put_Name(HSTRING value) = 0;

protected:
  ~INamed() = default;
};

struct IScaled : abi::IInspectable {
  static constexpr GUID kIid{0x7E570002, 0, 0, {0, 0, 0, 0, 0, 0, 0, 2}};

  /// Mixes kinds of registers, and spills to the stack.
  virtual HRESULT WRT_ABI Scale(int32_t number, double factor, uint8_t byte, float fraction,
                                int64_t wide, double *result) = 0;

protected:
  ~IScaled() = default;
};

struct Handler : abi::IUnknown {
  static constexpr GUID kIid{0x7E570003, 0, 0, {0, 0, 0, 0, 0, 0, 0, 3}};

  virtual HRESULT WRT_ABI Invoke(abi::IInspectable *sender, int32_t value) = 0;

protected:
  ~Handler() = default;
};

} // namespace wrt::test

#endif
