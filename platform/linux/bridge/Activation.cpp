#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/string/HString.h"

#include <WRTBridge.h>

using namespace wrt;

WRT_DLLEXPORT void *WRTActivateInstance(const char16_t *className) {
  if (className == nullptr)
    return nullptr;
  const auto factory = activation::findFactory(className);
  implement::ComPtr<wrt::abi::IInspectable> instance;
  if (!factory || factory->ActivateInstance(instance.put()) < 0)
    return nullptr;
  return instance.detach();
}

WRT_DLLEXPORT HRESULT WRTGetActivationFactory(HSTRING className, const GUID *iid, void **factory) {
  if (factory == nullptr)
    return status::kPointer;
  *factory = nullptr;
  if (iid == nullptr || className == nullptr)
    return status::kInvalidArgument;
  const auto found = activation::findFactory(viewOf(className));
  if (!found)
    return status::kClassNotRegistered;
  return found->QueryInterface(iid, factory);
}
