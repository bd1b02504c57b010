#include "tests/wine/classes/SpeechSource.h"

#include "platform/linux/implement/ComPtr.h"
#include "platform/linux/implement/StringHolder.h"

#include <WRTAbi.h>
#include <WRTBridge.h>
#include <WRTStatus.h>

namespace wrt::test {

namespace {

// Interfaces of Windows.Media.SpeechRecognition (Windows 10 SDK 10.0.16299.0,
// windows.media.speechrecognition.h) up to the last member that is called.

struct ISpeechRecognizer : abi::IInspectable {
  static constexpr GUID kIid{
      0x0bc3c9cb, 0xc26a, 0x40f2, {0xae, 0xb5, 0x80, 0x96, 0xb2, 0xe4, 0x80, 0x73}};
  virtual HRESULT WRT_ABI get_CurrentLanguage(void **value) = 0;
  virtual HRESULT WRT_ABI get_Constraints(void **value) = 0;
  virtual HRESULT WRT_ABI get_Timeouts(void **value) = 0;
  virtual HRESULT WRT_ABI get_UIOptions(void **value) = 0;
  virtual HRESULT WRT_ABI CompileConstraintsAsync(void **operation) = 0;

protected:
  ~ISpeechRecognizer() = default;
};

struct ISpeechContinuousRecognitionSession : abi::IInspectable {
  virtual HRESULT WRT_ABI get_AutoStopSilenceTimeout(void *value) = 0;
  virtual HRESULT WRT_ABI put_AutoStopSilenceTimeout(int64_t value) = 0;
  virtual HRESULT WRT_ABI StartAsync(void **action) = 0;

protected:
  ~ISpeechContinuousRecognitionSession() = default;
};

struct ISpeechRecognizer2 : abi::IInspectable {
  static constexpr GUID kIid{
      0x63c9baf1, 0x91e3, 0x4ea4, {0x86, 0xa1, 0x7c, 0x38, 0x67, 0xd0, 0x84, 0xa6}};
  virtual HRESULT WRT_ABI
  get_ContinuousRecognitionSession(ISpeechContinuousRecognitionSession **value) = 0;

protected:
  ~ISpeechRecognizer2() = default;
};

struct ISpeechRecognitionListConstraint : abi::IInspectable {
  virtual HRESULT WRT_ABI get_Commands(void **value) = 0;

protected:
  ~ISpeechRecognitionListConstraint() = default;
};

struct ISpeechRecognitionListConstraintFactory : abi::IInspectable {
  static constexpr GUID kIid{
      0x40f3cdc7, 0x562a, 0x426a, {0x9f, 0x3b, 0x3b, 0x4e, 0x28, 0x2b, 0xe1, 0xd5}};
  virtual HRESULT WRT_ABI Create(void *commands, ISpeechRecognitionListConstraint **result) = 0;
  virtual HRESULT WRT_ABI CreateWithTag(void *commands, HSTRING tag,
                                        ISpeechRecognitionListConstraint **result) = 0;

protected:
  ~ISpeechRecognitionListConstraintFactory() = default;
};

/// An interface of the recognizer, or null.
template <class Interface>
implement::ComPtr<Interface> ask(void *object) {
  return implement::ComPtr(static_cast<abi::IInspectable *>(object)).as<Interface>();
}

} // namespace

SpeechSource::SpeechSource()
    : recognizer_(WRTActivateInstance(u"Windows.Media.SpeechRecognition.SpeechRecognizer")) {}

SpeechSource::~SpeechSource() { WRTIUnknownSafeRelease(recognizer_); }

HRESULT SpeechSource::compileConstraints(void **operation) {
  *operation = nullptr;
  const auto recognizer = ask<ISpeechRecognizer>(recognizer_);
  return recognizer ? recognizer->CompileConstraintsAsync(operation) : status::kNoInterface;
}

HRESULT SpeechSource::startSession(void **action) {
  *action = nullptr;
  const auto recognizer = ask<ISpeechRecognizer2>(recognizer_);
  if (!recognizer)
    return status::kNoInterface;
  implement::ComPtr<ISpeechContinuousRecognitionSession> session;
  const HRESULT result = recognizer->get_ContinuousRecognitionSession(session.put());
  return result < 0 ? result : session->StartAsync(action);
}

HRESULT makePhrases(void *iterable, void **vector) {
  *vector = nullptr;
  const implement::StringHolder name(
      u"Windows.Media.SpeechRecognition.SpeechRecognitionListConstraint");
  const implement::StringHolder tag(u"tag");
  implement::ComPtr<ISpeechRecognitionListConstraintFactory> factory;
  HRESULT result = WRTGetActivationFactory(
      name.get(), &ISpeechRecognitionListConstraintFactory::kIid, factory.putVoid());
  implement::ComPtr<ISpeechRecognitionListConstraint> constraint;
  if (result >= 0)
    result = factory->CreateWithTag(iterable, tag.get(), constraint.put());
  return result < 0 ? result : constraint->get_Commands(vector);
}

} // namespace wrt::test
