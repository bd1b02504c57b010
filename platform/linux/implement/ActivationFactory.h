#ifndef WRT_ACTIVATION_FACTORY_H
#define WRT_ACTIVATION_FACTORY_H

#include "platform/linux/implement/Implements.h"

namespace wrt::implement {

/// The base of a runtime class's activation factory with the class's statics and factory
/// interfaces. The class has no default instances.
template <class... Statics>
class ActivationFactory : public Implements<abi::IActivationFactory, Statics...> {
public:
  HRESULT WRT_ABI ActivateInstance(abi::IInspectable **instance) override {
    if (instance == nullptr)
      return status::kPointer;
    *instance = nullptr;
    return status::kNotImplemented;
  }
};

/// The same for a runtime class whose default instances are new `Class` objects.
template <class Class, class... Statics>
class DefaultActivationFactory : public Implements<abi::IActivationFactory, Statics...> {
public:
  HRESULT WRT_ABI ActivateInstance(abi::IInspectable **instance) override {
    if (instance == nullptr)
      return status::kPointer;
    *instance = make<Class>().detach()->identity();
    return status::kOk;
  }
};

} // namespace wrt::implement

#endif
