#include "tests/wine/classes/SpeechSource.h"

#include "platform/linux/implement/StringHolder.h"

#include <WRTAbi.h>
#include <WRTBridge.h>
#include <WRTStatus.h>

namespace wrt::test {

namespace {

// Of Windows.Media.SpeechRecognition (Windows 10 SDK 10.0.16299.0,
// windows.media.speechrecognition.h): interfaces, and the slots of the members that are called.
constexpr GUID kRecognizer = {
    0x0bc3c9cb, 0xc26a, 0x40f2, {0xae, 0xb5, 0x80, 0x96, 0xb2, 0xe4, 0x80, 0x73}};
constexpr int kCompileConstraintsAsync = 10;
constexpr GUID kRecognizer2 = {
    0x63c9baf1, 0x91e3, 0x4ea4, {0x86, 0xa1, 0x7c, 0x38, 0x67, 0xd0, 0x84, 0xa6}};
constexpr int kContinuousRecognitionSession = 6;
constexpr int kStartAsync = 8; // of the session
constexpr GUID kListConstraintFactory = {
    0x40f3cdc7, 0x562a, 0x426a, {0x9f, 0x3b, 0x3b, 0x4e, 0x28, 0x2b, 0xe1, 0xd5}};
constexpr int kCreateWithTag = 7;
constexpr int kCommands = 6; // of the constraint

/// Calls a member of an object through a pointer to the member's interface.
template <class... Arguments>
HRESULT call(void *interface, int slot, Arguments... arguments) {
  using Function = HRESULT(WRT_ABI *)(void *, Arguments...);
  return reinterpret_cast<Function>((*static_cast<void ***>(interface))[slot])(interface,
                                                                               arguments...);
}

/// The same, when the object has the interface.
template <class... Arguments>
HRESULT ask(void *object, const GUID &iid, int slot, Arguments... arguments) {
  void *interface = nullptr;
  HRESULT status =
      object ? WRTIUnknownQueryInterface(object, &iid, &interface) : wrt::status::kNoInterface;
  if (status >= 0)
    status = call(interface, slot, arguments...);
  WRTIUnknownSafeRelease(interface);
  return status;
}

} // namespace

SpeechSource::SpeechSource()
    : recognizer_(WRTActivateInstance(u"Windows.Media.SpeechRecognition.SpeechRecognizer")) {}

SpeechSource::~SpeechSource() { WRTIUnknownSafeRelease(recognizer_); }

HRESULT SpeechSource::compileConstraints(void **operation) {
  return ask(recognizer_, kRecognizer, kCompileConstraintsAsync, operation);
}

HRESULT SpeechSource::startSession(void **action) {
  void *session = nullptr;
  HRESULT status = ask(recognizer_, kRecognizer2, kContinuousRecognitionSession, &session);
  if (status >= 0)
    status = call(session, kStartAsync, action);
  WRTIUnknownSafeRelease(session);
  return status;
}

HRESULT makePhrases(void *iterable, void **vector) {
  const implement::StringHolder name(
      u"Windows.Media.SpeechRecognition.SpeechRecognitionListConstraint");
  const implement::StringHolder tag(u"tag");
  void *factory = nullptr;
  void *constraint = nullptr;
  HRESULT status = WRTGetActivationFactory(name.get(), &kListConstraintFactory, &factory);
  if (status >= 0)
    status = call(factory, kCreateWithTag, iterable, tag.get(), &constraint);
  if (status >= 0)
    status = call(constraint, kCommands, vector);
  WRTIUnknownSafeRelease(constraint);
  WRTIUnknownSafeRelease(factory);
  return status;
}

} // namespace wrt::test
