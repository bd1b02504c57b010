#ifndef WRT_ARM_UNWINDER_H
#define WRT_ARM_UNWINDER_H

#include "Process.h"
#include "UnwindData.h"

#include <map>

namespace wrt::emulator {

/// Leaves functions by the records in their images, as exceptions and backtraces do on Windows.
class Unwinder {
public:
  explicit Unwinder(Process &process) : process_(process) {}

  /// From a function of the host that has just been entered back to where the host entered the
  /// program. Says what is wrong with what is found there (the stack pointer, the registers that
  /// are to be preserved) or on the way, or "".
  std::string unwind();

private:
  void leave(const pe::UnwindRecord &record, Registers &at) const;
  const std::vector<pe::UnwindRecord> &recordsOf(const Module &module);

  Process &process_;
  std::map<const Module *, std::vector<pe::UnwindRecord>> records_;
};

} // namespace wrt::emulator

#endif
