#include "debug/trace/Closure.h"

#include <stdexcept>

namespace wrt::trace {

Closure::Closure(std::vector<debug::EncodedType> types, Handler handler, void *data,
                 ffi_abi convention)
    : types_(std::move(types)) {
  for (size_t i = 0; i < count(); ++i)
    arguments_.push_back(argument(i).ffi());
  auto *closure = static_cast<ffi_closure *>(ffi_closure_alloc(sizeof(ffi_closure), &code_));
  if (!closure || count() > kMost ||
      ffi_prep_cif(&cif_, convention, static_cast<unsigned>(count()), result().ffi(),
                   arguments_.data()) != FFI_OK ||
      ffi_prep_closure_loc(closure, &cif_, handler, data, code_) != FFI_OK)
    throw std::runtime_error("libffi cannot take the place of a method");
}

} // namespace wrt::trace
