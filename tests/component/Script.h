#ifndef WRT_TESTS_SCRIPT_H
#define WRT_TESTS_SCRIPT_H

#include <WRTObjcBridge/WRTTypes.h>
#include <WRTObjcBridge/types/test.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace wrt::test {

/// What the test component answers and hands out, as far as compilers agree on how it lies in
/// memory.
struct PlainScript {
  /// The status of every member.
  HRESULT status = 0;
  /// Whether a failing member has first filled its out-values with 0xCC bytes.
  bool poisons = false;
  /// Whether objects handed out are null.
  bool nullObjects = false;

  int32_t integer = 42;
  WRTTestStruct structure{3, -4};

  /// How many elements arrays have: integers 1, 2, ...; structures {1, -1}, ...; strings "0", "1",
  /// ...; new objects. A filled array gets at most as many as it has room for.
  int32_t count = 3;

  /// How often a delegate is invoked before its member returns.
  int invocations = 1;
  /// Whether the delegate is kept for `keptDelegate`.
  bool keepsDelegate = false;

  /// What the next member does to its caller before it does what it should.
  std::function<void()> meddle;
};

/// All of it. One for the process; `reset` puts it back.
struct Script : PlainScript {
  std::u16string string = u"out";
};

Script &script();
void resetScript();

/// What reached the component since the last time, in the order it came, or the first of it: the
/// member's name and its arguments, as in `InPrimitive 7`. Any thread.
std::vector<std::string> takeCrossings(size_t most = SIZE_MAX);
void recordCrossing(std::string text);

/// UTF-16 as UTF-8, for crossings; a lone surrogate is written as `?`.
std::string narrow(std::u16string_view text);

} // namespace wrt::test

#endif
