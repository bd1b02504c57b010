#ifndef WRT_TRACE_SHOW_H
#define WRT_TRACE_SHOW_H

#include "debug/trace/Closure.h"
#include "debug/trace/Crossing.h"

namespace wrt::trace {

/// Calls `function` and times it for `crossing`; what it raises is noted and passes on.
void callThrough(Crossing &crossing, ffi_cif *cif, void (*function)(), void *result,
                 Closure::Places &places);

/// The arguments `first` to `end` of a call as they are shown: what goes in is looked at before the
/// call, since it may be gone afterwards, and what comes out behind it.
class ArgumentTexts {
public:
  ArgumentTexts(Crossing &crossing, const Closure &closure, size_t first, size_t end)
      : crossing_(crossing), closure_(closure), first_(first), end_(end) {}

  void showBefore(const Closure::Places &places);
  void showAfter(const Closure::Places &places, const Ending &ending);

private:
  bool comesOut(size_t index) const;
  void tell();

  Crossing &crossing_;
  const Closure &closure_;
  size_t first_;
  size_t end_;
  std::vector<std::string> texts_;
};

/// The result of a call as it is shown; empty for none.
std::string resultText(const Closure &closure, const void *result);

} // namespace wrt::trace

#endif
