#include "tests/exhaustive/RecordingObject.h"

#include <cstdio>
#include <cstdlib>

namespace wrt::test {

RecordingObject::RecordingObject() {
  for (void *&slot : slots_)
    slot = reinterpret_cast<void *>(&stray);
  slots_[0] = reinterpret_cast<void *>(&queryInterface);
  slots_[1] = reinterpret_cast<void *>(&addRef);
  slots_[2] = reinterpret_cast<void *>(&release);
}

HRESULT RecordingObject::queryInterface(void *self, const GUID *iid, void **result) {
  RecordingObject &object = of(self);
  object.queries.push_back(*iid);
  if (object.queryStatus < 0)
    return object.queryStatus;
  ++object.references;
  *result = self;
  return object.queryStatus;
}

uint32_t RecordingObject::addRef(void *self) {
  return static_cast<uint32_t>(++of(self).references);
}

uint32_t RecordingObject::release(void *self) {
  return static_cast<uint32_t>(--of(self).references);
}

HRESULT RecordingObject::stray(void *self) {
  ++of(self).strayCalls;
  return 0;
}

void RecordingObject::enter(ffi_cif *, void *result, void **arguments, void *self) {
  *static_cast<ffi_sarg *>(result) = static_cast<RecordingObject *>(self)->body_(arguments + 1);
}

void RecordingObject::expect(int slot, std::vector<ffi_type *> parameters,
                             std::function<HRESULT(void **)> body) {
#if defined(__x86_64__)
  constexpr ffi_abi kAbi = FFI_GNUW64;
#else
  constexpr ffi_abi kAbi = FFI_DEFAULT_ABI;
#endif
  forget();
  types_ = std::move(parameters);
  types_.insert(types_.begin(), &ffi_type_pointer);
  body_ = std::move(body);
  closure_ = static_cast<ffi_closure *>(ffi_closure_alloc(sizeof(ffi_closure), &code_));
  if (!closure_ ||
      ffi_prep_cif(&cif_, kAbi, static_cast<unsigned>(types_.size()), &ffi_type_sint32,
                   types_.data()) != FFI_OK ||
      ffi_prep_closure_loc(closure_, &cif_, &enter, this, code_) != FFI_OK) {
    std::fprintf(stderr, "exhaustive: libffi cannot make a closure\n");
    std::exit(2);
  }
  live_ = slot;
  slots_[slot] = code_;
}

void RecordingObject::forget() {
  if (live_ >= 0)
    slots_[live_] = reinterpret_cast<void *>(&stray);
  if (closure_)
    ffi_closure_free(closure_);
  closure_ = nullptr;
  live_ = -1;
}

} // namespace wrt::test
