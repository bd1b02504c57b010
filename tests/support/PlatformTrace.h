#ifndef WRT_TESTS_PLATFORM_TRACE_H
#define WRT_TESTS_PLATFORM_TRACE_H

#include <WRTObjcBridge/WRTTypes.h>

#include <functional>
#include <string>
#include <vector>

namespace wrt::test {

/// One call of the platform interface by the library, seen on the tracing thread.
struct PlatformCall {
  std::string function;
  const void *argument;
  size_t size = 0;
};

/// Makes the `WRTHSTRINGDuplicate` of this thread that comes after `after` others fail with
/// `status`.
void failNextDuplicate(HRESULT status, int after = 0);
/// Makes the next `WRTHSTRINGCreateReference` of this thread fail with `status`.
void failNextReference(HRESULT status);

/// What the platform can be made to lack: task memory, a new `NSString`, a semaphore, memory for an
/// object of its own.
enum class Lack { TaskMemory, String, Semaphore, Object };

/// Makes this thread's next request of the kind answer null.
void failNext(Lack lack);

/// Whether objects can be lacking: ThreadSanitizer has an `operator new` that nobody can replace.
inline constexpr bool kObjectsCanLack = !__has_feature(thread_sanitizer);

/// What becomes of a call of a platform function: it is carried out, fails with `kStruck`, or gives
/// null (with success, where there is a status).
enum class Strike { None, Failure, Null };
inline constexpr HRESULT kStruck = static_cast<HRESULT>(0x8007F417);

/// Asked, on any thread, before each call of a platform function that can fail. `caller` is where
/// it returns to. Null for nobody.
using Striker = Strike (*)(const char *function, const void *caller);
void setStriker(Striker striker);
/// What the striker says.
Strike strikeOf(const char *function, const void *caller);

/// Records the calls of allocation, release and conversion functions that this thread makes while
/// it lives. The test program's own functions stand in front of the platform's and forward to them.
class PlatformTrace {
public:
  PlatformTrace();
  ~PlatformTrace();

  /// Called before each function is carried out.
  std::function<void(const PlatformCall &)> watch;

  const std::vector<PlatformCall> &calls() const { return calls_; }
  /// The functions' names, joined by spaces.
  std::string names() const;
  void add(PlatformCall call) {
    if (watch)
      watch(call);
    calls_.push_back(std::move(call));
  }

private:
  std::vector<PlatformCall> calls_;
};

} // namespace wrt::test

#endif
