#ifndef WRT_TESTS_WINE_ANSWER_H
#define WRT_TESTS_WINE_ANSWER_H

namespace wrt::test {

/// What a version of Wine answers when a member is called.
enum class Answer {
  Works,
  /// Succeeds and does not do its work: a handler is not kept, an element not found.
  Stub,
  /// Fails with `E_NOTIMPL`.
  NotImplemented,
  /// The object lacks the member's interface, so that the bridge does not call at all.
  NoInterface,
};

} // namespace wrt::test

#endif
