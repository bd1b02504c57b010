#ifndef WRT_STRING_HOLDER_H
#define WRT_STRING_HOLDER_H

#include "platform/linux/string/HString.h"

#include <WRTBridge.h>
#include <WRTStatus.h>
#include <string_view>
#include <utility>

namespace wrt::implement {

/// A handle to a string, given up at the end of the scope. Copies share the text.
class StringHolder {
public:
  StringHolder() = default;
  /// A new string with a copy of the text; empty when memory runs out.
  StringHolder(std::u16string_view text) { makeString(text, &string_); }
  /// A handle of its own to a borrowed string; a string reference is copied.
  explicit StringHolder(HSTRING string) { WRTHSTRINGDuplicate(string, &string_); }
  /// Takes over a handle (+1) that the caller owns.
  static StringHolder adopt(HSTRING string) {
    StringHolder result;
    result.string_ = string;
    return result;
  }

  StringHolder(const StringHolder &other) : StringHolder(other.string_) {}
  StringHolder(StringHolder &&other) noexcept : string_(other.detach()) {}
  StringHolder &operator=(StringHolder other) noexcept {
    std::swap(string_, other.string_);
    return *this;
  }
  ~StringHolder() { WRTHSTRINGRelease(string_); }

  /// Borrowed from this holder; null for the empty string.
  HSTRING get() const { return string_; }
  /// Borrowed from this holder, followed by a 0.
  std::u16string_view view() const { return viewOf(string_); }

  /// Hands the handle (+1) to the caller.
  [[nodiscard]] HSTRING detach() { return std::exchange(string_, nullptr); }
  /// Where an out-parameter puts a handle (+1); what was held is given up first.
  [[nodiscard]] HSTRING *put() {
    WRTHSTRINGRelease(detach());
    return &string_;
  }

  /// Answers an out-parameter: `*out` becomes a handle of its own (+1).
  HRESULT copyTo(HSTRING *out) const {
    return out == nullptr ? status::kPointer : WRTHSTRINGDuplicate(string_, out);
  }

  friend bool operator==(const StringHolder &left, const StringHolder &right) {
    return left.view() == right.view();
  }

private:
  HSTRING string_ = nullptr;
};

} // namespace wrt::implement

#endif
