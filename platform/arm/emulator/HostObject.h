#ifndef WRT_ARM_HOST_OBJECT_H
#define WRT_ARM_HOST_OBJECT_H

#include "Process.h"

#include <array>

namespace wrt::emulator {

/// An identifier as it lies in memory.
using Iid = std::array<std::uint8_t, 16>;

/// A WinRT object in the emulated process whose functions run on the host. It answers every query
/// with itself. It must not go before its process has ended.
class HostObject {
public:
  static constexpr int kSlots = 256;
  static constexpr std::uint32_t kNoInterface = 0x80004002;

  explicit HostObject(Process &process);
  HostObject(const HostObject &) = delete;
  HostObject &operator=(const HostObject &) = delete;

  /// The interface pointer.
  Address pointer() const { return face_; }

  /// A call of any slot behind `Release`: its number and its arguments, the interface pointer
  /// first. Without it such a call is a fault.
  std::function<std::uint32_t(int slot, const HostCall &)> called;
  /// Told of each query before it is answered.
  std::function<void(const Iid &, const HostCall &)> asked;
  int references = 1;
  /// A query's answer.
  std::uint32_t queryStatus = 0;

private:
  std::uint32_t enter(int slot, const HostCall &call);

  Address face_;
};

} // namespace wrt::emulator

#endif
