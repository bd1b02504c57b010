/// The component: `Contoso.Greeter` and `Contoso.Guest` for the embedded platform.
#include "abi/Contoso.abi.h"
#include "abi/GreeterBridge.families.h"
#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/components/collections/VectorView.h"
#include "platform/linux/implement/ActivationFactory.h"
#include "platform/linux/implement/EventSource.h"
#include "platform/linux/implement/StringHolder.h"

#include <mutex>
#include <string>

namespace {

using namespace wrt::implement;
namespace abi = wrt::abi;
namespace status = wrt::status;

class Guest final : public Implements<abi::ContosoIGuest> {
public:
  Guest(HSTRING name, ContosoWRTVisit visit) : name_(name), visit_(visit) {}

  HRESULT WRT_ABI get_Name(HSTRING *name) override { return name_.copyTo(name); }
  HRESULT WRT_ABI get_Visit(ContosoWRTVisit *visit) override {
    if (visit == nullptr)
      return status::kPointer;
    *visit = visit_;
    return status::kOk;
  }

private:
  std::u16string_view runtimeClassName() const override { return u"Contoso.Guest"; }

  const StringHolder name_;
  const ContosoWRTVisit visit_;
};

using GuestClass = types::ContosoGuest;
using ArrivedHandler = abi::ContosoTypedEventHandler__2_WRTGreeter_P_WRTGuest_P;

class Greeter final : public Implements<abi::ContosoIGreeter, abi::IClosable> {
public:
  explicit Greeter(HSTRING greeting) : greeting_(greeting) {}

  HRESULT WRT_ABI Greet(HSTRING whom, HSTRING *greeting) override {
    if (greeting == nullptr)
      return status::kPointer;
    const std::u16string text =
        std::u16string(greeting_.view()) + u", " + std::u16string(wrt::viewOf(whom)) + u"!";
    return wrt::makeString(text, greeting);
  }

  HRESULT WRT_ABI add_Arrived(ArrivedHandler *handler, WRTEventRegistrationToken *token) override {
    return arrived_.add(handler, token);
  }
  HRESULT WRT_ABI remove_Arrived(WRTEventRegistrationToken token) override {
    return arrived_.remove(token);
  }

  /// Completes once every handler knows of the guest.
  HRESULT WRT_ABI WelcomeAsync(HSTRING name,
                               abi::ContosoIAsyncOperation__1_WRTGuest_P **operation) override {
    return startAsync<GuestClass>(operation,
                                  [self = ComPtr(this), name = StringHolder(name)](
                                      const Work<> &, ComPtr<abi::ContosoIGuest> &result) {
                                    result = self->welcome(name.get());
                                    return self->arrived_.raise(self.get(), result.get());
                                  });
  }

  HRESULT WRT_ABI get_Guests(abi::ContosoIVectorView__1_WRTGuest_P **guests) override {
    const std::lock_guard lock(mutex_);
    return makeVectorView<GuestClass>(guests, guests_);
  }

  HRESULT WRT_ABI Close() override {
    const std::lock_guard lock(mutex_);
    guests_.clear();
    return status::kOk;
  }

private:
  std::u16string_view runtimeClassName() const override { return u"Contoso.Greeter"; }

  ComPtr<abi::ContosoIGuest> welcome(HSTRING name) {
    const std::lock_guard lock(mutex_);
    const auto number = static_cast<int>(guests_.size()) + 1;
    const int mood = number > 1 ? 1 : 0; // company cheers up
    guests_.push_back(make<Guest>(name, ContosoWRTVisit{number, mood, 7.5 * number}));
    return guests_.back();
  }

  const StringHolder greeting_;
  EventSource<ArrivedHandler> arrived_;
  std::mutex mutex_;
  Items<GuestClass> guests_;
};

class GreeterFactory final : public ActivationFactory<abi::ContosoIGreeterFactory> {
public:
  HRESULT WRT_ABI CreateGreeter(HSTRING greeting, abi::ContosoIGreeter **greeter) override {
    return makeInto<Greeter>(greeter, greeting);
  }
};

using namespace wrt::activation;
const Registration kGreeter(u"Contoso.Greeter", makeFactory<GreeterFactory>);

} // namespace
