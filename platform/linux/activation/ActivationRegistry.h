/// Which runtime classes there are in this process and who makes their factories.
#ifndef WRT_ACTIVATION_REGISTRY_H
#define WRT_ACTIVATION_REGISTRY_H

#include "platform/linux/implement/ActivationFactory.h"

#include <functional>
#include <string>
#include <string_view>

namespace wrt::activation {

/// Makes a class's activation factory, anew or the one it keeps. Called on any thread, once per
/// request, without a lock held.
using FactoryMaker = std::function<implement::ComPtr<abi::IActivationFactory>()>;

/// A runtime class that can be activated as long as this object lives. Component libraries keep one
/// in static storage, tests on the stack; the latest registration of a name counts and gives way to
/// the one before it when it ends.
///
///     const Registration uri(u"Windows.Foundation.Uri", makeFactory<UriFactory>);
class WRT_DLLEXPORT Registration {
public:
  Registration(std::u16string_view className, FactoryMaker maker);
  ~Registration();
  Registration(const Registration &) = delete;
  Registration &operator=(const Registration &) = delete;

private:
  std::u16string className_;
};

/// The maker of factories that keep nothing between calls.
template <class Factory>
implement::ComPtr<abi::IActivationFactory> makeFactory() {
  return implement::make<Factory>();
}

/// The factory of a class, or null when it is not registered.
WRT_DLLEXPORT implement::ComPtr<abi::IActivationFactory> findFactory(std::u16string_view className);

} // namespace wrt::activation

#endif
