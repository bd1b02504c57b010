#ifndef WRT_TRACE_CLOSURE_H
#define WRT_TRACE_CLOSURE_H

#include "debug/Encoding.h"

#include <ffi.h>

#include <array>

namespace wrt::trace {

/// Code made at run time that hands calls of one signature to a function. Lives until the process
/// ends.
class Closure {
public:
  using Handler = void (*)(ffi_cif *cif, void *result, void **arguments, void *data);
  /// No more arguments than that.
  static constexpr size_t kMost = 32;
  using Places = std::array<void *, kMost>;

  /// For the signature `types`: result, then all arguments; `data` is borrowed for good. Throws
  /// `std::runtime_error` when there is no memory or libffi does not know such a call.
  Closure(std::vector<debug::EncodedType> types, Handler handler, void *data,
          ffi_abi convention = FFI_DEFAULT_ABI);
  Closure(const Closure &) = delete;

  void *code() const { return code_; }
  const debug::EncodedType &result() const { return types_.front(); }
  size_t count() const { return types_.size() - 1; }
  const debug::EncodedType &argument(size_t index) const { return types_[index + 1]; }

private:
  std::vector<debug::EncodedType> types_;
  std::vector<ffi_type *> arguments_;
  ffi_cif cif_;
  void *code_ = nullptr;
};

} // namespace wrt::trace

#endif
