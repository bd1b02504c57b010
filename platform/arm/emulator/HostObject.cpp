#include "HostObject.h"

#include <fmt/core.h>

#include <algorithm>

namespace wrt::emulator {

HostObject::HostObject(Process &process) : face_(process.allocate(8 + 4 * kSlots)) {
  Machine &machine = process.machine();
  const Address table = face_ + 8;
  for (int slot = 0; slot < kSlots; ++slot) {
    // A function of its own for each object and slot: what is called says whose it is.
    const std::string name = fmt::format("slot {} of {:#x}", slot, face_);
    machine.define(name, [this, slot](const HostCall &call) { return enter(slot, call); });
    machine.writeWord(table + 4 * static_cast<Address>(slot), machine.hostFunction(name));
  }
  machine.writeWord(face_, table);
}

std::uint32_t HostObject::enter(int slot, const HostCall &call) {
  if (call[0] != face_)
    throw Fault(fmt::format("slot {} is called on {:#x}", slot, call[0]));
  switch (slot) {
  case 0: {
    Iid iid;
    std::ranges::copy(call.machine().read(call[1], iid.size()), iid.begin());
    if (asked)
      asked(iid, call);
    if (static_cast<std::int32_t>(queryStatus) >= 0) {
      ++references;
      call.machine().writeWord(call[2], face_);
    }
    return queryStatus;
  }
  case 1:
    return static_cast<std::uint32_t>(++references);
  case 2:
    return static_cast<std::uint32_t>(--references);
  default:
    if (!called)
      throw Fault(fmt::format("slot {} is called that nothing expects", slot));
    return called(slot, call);
  }
}

} // namespace wrt::emulator
