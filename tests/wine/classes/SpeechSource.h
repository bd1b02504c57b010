#ifndef WRT_TESTS_WINE_SPEECH_SOURCE_H
#define WRT_TESTS_WINE_SPEECH_SOURCE_H

#include <WRTObjcBridge/WRTTypes.h>

namespace wrt::test {

/// Wine's speech recognizer. The catalogue does not have it, but it hands out and takes objects of
/// the generic families that have bridges. All out-parameters are +1 and untyped.
class SpeechSource {
public:
  SpeechSource();
  ~SpeechSource();
  SpeechSource(const SpeechSource &) = delete;
  SpeechSource &operator=(const SpeechSource &) = delete;

  /// An asynchronous operation, which is an `IAsyncInfo` too.
  HRESULT compileConstraints(void **operation);
  /// An `IAsyncAction`. The constraints must have been compiled.
  HRESULT startSession(void **action);

private:
  void *recognizer_;
};

/// Makes a list of phrases out of an `IIterable<String>` (borrowed) and hands out the
/// `IVector<String>` that it keeps.
HRESULT makePhrases(void *iterable, void **vector);

} // namespace wrt::test

#endif
