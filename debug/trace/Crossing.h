#ifndef WRT_TRACE_CROSSING_H
#define WRT_TRACE_CROSSING_H

#include "debug/trace/Options.h"

#include <ctime>

namespace wrt::trace {

/// What the whole trace goes by; filled before the first crossing and never changed.
struct Settings {
  Options options;
  Tables tables;
  int output = 2; ///< a file descriptor
};
const Settings &settings();

/// One crossing on its way, from its construction to the end of its scope; on one thread they lie
/// within each other. Writes its line at the end, where the options want it.
class Crossing {
public:
  enum class Direction { Out, In };

  /// `receiver` is the class under which the member is shown.
  Crossing(Direction direction, const Method &method, const char *receiver);
  Crossing(const Crossing &) = delete;
  ~Crossing();

  /// The crossing that this thread is in, or null.
  static Crossing *current();
  /// Whether the thread is in the library, called by the application, and not back in a block of
  /// the application's.
  static bool isInLibrary();

  /// Whether there is a point in showing values.
  bool isWanted() const { return isWanted_; }
  const Method &method() const { return method_; }
  const char *receiver() const { return receiver_; }

  /// The time of the call proper. A crossing that is not stopped has been left by an exception.
  void start() { start_ = now(); }
  void stop() { duration_ = now() - start_; }

  /// An interface was asked for on the way and could not be had.
  void note(const std::string &interface, HRESULT status);
  HRESULT missingStatus() const { return missingStatus_; }
  void raised(const char *exception) { exception_ = exception; }
  void end(const Ending &ending) { ending_ = ending; }
  void setArguments(std::string text) { arguments_ = std::move(text); }
  void setResult(std::string text) { result_ = std::move(text); }

private:
  static int64_t now() {
    timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * INT64_C(1000000000) + time.tv_nsec;
  }
  void write(const Ending &ending) const;

  Direction direction_;
  const Method &method_;
  const char *receiver_;
  bool isWanted_;
  Crossing *outer_;
  int depth_;
  int64_t start_ = 0;
  int64_t duration_ = -1;
  Ending ending_;
  std::string exception_;
  std::string missing_; ///< an interface
  HRESULT missingStatus_;
  std::string arguments_;
  std::string result_;
};

/// Writes all of `text` to the file descriptor, in one piece where that takes it.
void writeAll(int output, const std::string &text);

/// As long as one lives, nothing that its thread does is traced: what shows a value may call the
/// application.
class Silence {
public:
  Silence();
  Silence(const Silence &) = delete;
  ~Silence();
  static bool isKept();
};

} // namespace wrt::trace

#endif
