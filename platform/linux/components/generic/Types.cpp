#include "platform/linux/components/generic/Types.h"

#include <functional>

namespace wrt::implement {
namespace {

/// The pointer that stands for the object, borrowed; what an object answers for `IUnknown` never
/// changes as long as it lives.
abi::IUnknown *identityOf(abi::IUnknown *object) {
  const auto identity = ComPtr<abi::IUnknown>(object).as<abi::IUnknown>();
  return identity ? identity.get() : object;
}

} // namespace

bool isSameObject(abi::IUnknown *left, abi::IUnknown *right) {
  return left == right || identityOf(left) == identityOf(right);
}

bool isObjectBefore(abi::IUnknown *left, abi::IUnknown *right) {
  return left != right && std::less<>()(identityOf(left), identityOf(right));
}

} // namespace wrt::implement
