#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/foundation/Text.h"
#include "platform/linux/string/HString.h"

#include <abi/Windows.System.Profile.abi.h>

#include <cstdio>
#include <fstream>
#include <sys/utsname.h>

namespace wrt::components {

using namespace implement;

namespace {

/// Windows.System.Profile.AnalyticsVersionInfo of the kernel that runs.
class AnalyticsVersionInfo final : public Implements<abi::IAnalyticsVersionInfo> {
public:
  HRESULT WRT_ABI get_DeviceFamily(HSTRING *family) override {
    return family == nullptr ? status::kPointer : makeString(u"Linux.Desktop", family);
  }
  /// Four numbers of 16 bits each in one of 64, as decimal digits.
  HRESULT WRT_ABI get_DeviceFamilyVersion(HSTRING *version) override {
    if (version == nullptr)
      return status::kPointer;
    utsname names{};
    unsigned major = 0, minor = 0, build = 0;
    if (uname(&names) != 0 || std::sscanf(names.release, "%u.%u.%u", &major, &minor, &build) < 2)
      return status::kFail;
    const uint64_t packed = uint64_t{major} << 48 | uint64_t{minor} << 32 | uint64_t{build} << 16;
    return makeString(toUtf16(std::to_string(packed)), version);
  }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.System.Profile.AnalyticsVersionInfo";
  }
};

/// Windows.System.Profile.AnalyticsInfo.
class AnalyticsInfo final : public ActivationFactory<abi::IAnalyticsInfoStatics> {
public:
  HRESULT WRT_ABI get_VersionInfo(abi::IAnalyticsVersionInfo **result) override {
    return makeInto<AnalyticsVersionInfo>(result);
  }
  HRESULT WRT_ABI get_DeviceForm(HSTRING *form) override {
    if (form == nullptr)
      return status::kPointer;
    // The kind of case by the machine's own account (SMBIOS 3.0, 7.4.1).
    int chassis = 0;
    std::ifstream("/sys/class/dmi/id/chassis_type") >> chassis;
    switch (chassis) {
    case 3: // desktop
    case 4:
    case 6:
    case 7:
      return makeString(u"Desktop", form);
    case 8: // portable
    case 9:
    case 10:
    case 14:
      return makeString(u"Notebook", form);
    case 30:
      return makeString(u"Tablet", form);
    default:
      return makeString(u"Unknown", form);
    }
  }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.System.Profile.AnalyticsInfo";
  }
};

const activation::Registration registration(u"Windows.System.Profile.AnalyticsInfo",
                                            activation::makeFactory<AnalyticsInfo>);

} // namespace
} // namespace wrt::components
