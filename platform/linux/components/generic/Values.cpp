#include "platform/linux/components/generic/Values.h"

namespace wrt::implement {

abi::IUnknown *identityOf(abi::IUnknown *object) {
  const auto identity = ComPtr<abi::IUnknown>(object).as<abi::IUnknown>();
  return identity ? identity.get() : object;
}

bool isSameObject(abi::IUnknown *left, abi::IUnknown *right) {
  return left == right || identityOf(left) == identityOf(right);
}

} // namespace wrt::implement
