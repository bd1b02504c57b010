/// What a system has to offer for examples/greeter/Devices.idl: `FindAllAsync` with two devices.
/// What else these interfaces have is not implemented.
#include "abi/IAsyncOperation.abi.h"
#include "abi/Windows.Devices.Enumeration.abi.h"
#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/components/collections/VectorView.h"
#include "platform/linux/implement/ActivationFactory.h"
#include "platform/linux/implement/StringHolder.h"

namespace {

using namespace wrt::implement;
using namespace wrt::abi;
using wrt::status::kNotImplemented;

constexpr char16_t kClass[] = u"Windows.Devices.Enumeration.DeviceInformation";

class Device final : public Implements<IDeviceInformation> {
public:
  explicit Device(std::u16string_view name) : name_(name) {}

  HRESULT WRT_ABI get_Id(HSTRING *id) override { return name_.copyTo(id); }
  HRESULT WRT_ABI get_Name(HSTRING *name) override { return name_.copyTo(name); }
  HRESULT WRT_ABI get_IsEnabled(unsigned char *) override { return kNotImplemented; }
  HRESULT WRT_ABI get_IsDefault(unsigned char *) override { return kNotImplemented; }
  HRESULT WRT_ABI get_EnclosureLocation(IEnclosureLocation **) override { return kNotImplemented; }
  HRESULT WRT_ABI get_Properties(IMapView__2_WRTHSTRING_WRTIInspectable_P **) override {
    return kNotImplemented;
  }
  HRESULT WRT_ABI Update(IDeviceInformationUpdate *) override { return kNotImplemented; }
  HRESULT WRT_ABI GetThumbnailAsync(IAsyncOperation__1_WRTDeviceThumbnail_P **) override {
    return kNotImplemented;
  }
  HRESULT WRT_ABI GetGlyphThumbnailAsync(IAsyncOperation__1_WRTDeviceThumbnail_P **) override {
    return kNotImplemented;
  }

private:
  std::u16string_view runtimeClassName() const override { return kClass; }

  const StringHolder name_;
};

using DeviceClass = types::DeviceInformation;
using Devices = wrt::implement::IVectorView<DeviceClass>;
using DevicesClass = types::DeviceInformationCollection;
using FindOperation = IAsyncOperation__1_WRTDeviceInformationCollection_P;
using CreateOperation = IAsyncOperation__1_WRTDeviceInformation_P;
using Names = IIterable__1_WRTHSTRING;

class Statics final : public ActivationFactory<IDeviceInformationStatics> {
public:
  HRESULT WRT_ABI FindAllAsync(FindOperation **operation) override {
    Devices *devices = nullptr;
    makeVectorView<DeviceClass>(&devices,
                                {make<Device>(u"door bell"), make<Device>(u"porch light")});
    return completedAsync<DevicesClass>(operation, ComPtr<Devices>::adopt(devices));
  }
  HRESULT WRT_ABI FindAllAsyncDeviceClass(int, FindOperation **) override {
    return kNotImplemented;
  }
  HRESULT WRT_ABI FindAllAsyncAqsFilter(HSTRING, FindOperation **) override {
    return kNotImplemented;
  }
  HRESULT WRT_ABI FindAllAsyncAqsFilterAndAdditionalProperties(HSTRING, Names *,
                                                               FindOperation **) override {
    return kNotImplemented;
  }
  HRESULT WRT_ABI CreateFromIdAsync(HSTRING, CreateOperation **) override {
    return kNotImplemented;
  }
  HRESULT WRT_ABI CreateFromIdAsyncAdditionalProperties(HSTRING, Names *,
                                                        CreateOperation **) override {
    return kNotImplemented;
  }
  HRESULT WRT_ABI CreateWatcher(IDeviceWatcher **) override { return kNotImplemented; }
  HRESULT WRT_ABI CreateWatcherDeviceClass(int, IDeviceWatcher **) override {
    return kNotImplemented;
  }
  HRESULT WRT_ABI CreateWatcherAqsFilter(HSTRING, IDeviceWatcher **) override {
    return kNotImplemented;
  }
  HRESULT WRT_ABI CreateWatcherAqsFilterAndAdditionalProperties(HSTRING, Names *,
                                                                IDeviceWatcher **) override {
    return kNotImplemented;
  }
};

using namespace wrt::activation;
const Registration kDevices(kClass, makeFactory<Statics>);

} // namespace
