#include "debug/trace/Crossing.h"

#include "debug/trace/Status.h"

#include <WRTStatus.h>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace wrt::trace {

namespace {

constinit thread_local Crossing *innermost = nullptr;
constinit thread_local int silences = 0;

/// Lines are indented as far as this.
constexpr int kDeepest = 20;

std::string durationText(int64_t nanoseconds) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1fus", static_cast<double>(nanoseconds) / 1e3);
  return text;
}

} // namespace

void writeAll(int output, const std::string &text) {
  size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = ::write(output, text.data() + written, text.size() - written);
    if (count < 0 && errno == EINTR)
      continue;
    if (count <= 0)
      return;
    written += static_cast<size_t>(count);
  }
}

Crossing::Crossing(Direction direction, const Method &method, const char *receiver)
    : direction_(direction), method_(method), receiver_(receiver),
      isWanted_(settings().options.wantsClass(receiver)), outer_(innermost),
      depth_(outer_ ? outer_->depth_ + 1 : 0), missingStatus_(status::kNoInterface) {
  innermost = this;
}

Crossing::~Crossing() {
  innermost = outer_;
  Ending ending = ending_;
  ending.isRaised = duration_ < 0;
  if (ending.isRaised)
    stop();
  if (isWanted_ && duration_ >= settings().options.shortest &&
      settings().options.wantsEnding(ending))
    write(ending);
}

Crossing *Crossing::current() { return innermost; }

bool Crossing::isInLibrary() { return innermost && innermost->direction_ == Direction::Out; }

void Crossing::note(const std::string &interface, HRESULT status) {
  missing_ = interface;
  missingStatus_ = status;
}

void Crossing::write(const Ending &ending) const {
  std::string line = std::to_string(gettid()) + " " + std::to_string(depth_) +
                     (direction_ == Direction::Out ? " > " : " < ");
  line.append(2 * static_cast<size_t>(std::min(depth_, kDeepest)), ' ');
  line += method_.text(receiver_) + " " + method_.member + arguments_;
  if (!result_.empty() && !ending.isRaised)
    line += " = " + result_;
  if (ending.isRaised)
    line += " raised " + (exception_.empty() ? "an exception" : exception_);
  else if (!ending.isCalled)
    line += " not called, " + statusText(ending.status);
  else
    line += " " + (ending.isEmpty ? "failed" : statusText(ending.status));
  if (!missing_.empty() && ending.isFailure())
    line += ", no " + missing_;
  line += " " + durationText(duration_) + "\n";
  // In one piece, so that threads do not mix.
  writeAll(settings().output, line);
}

Silence::Silence() { ++silences; }
Silence::~Silence() { --silences; }
bool Silence::isKept() { return silences > 0; }

} // namespace wrt::trace
