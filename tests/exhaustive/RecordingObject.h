#ifndef WRT_TESTS_RECORDING_OBJECT_H
#define WRT_TESTS_RECORDING_OBJECT_H

#include <WRTAbi.h>

#include <ffi.h>

#include <functional>
#include <vector>

namespace wrt::test {

/// An object that answers every interface with itself and whose table has one live member at a
/// time: a function of any signature that hands its arguments on. Every other slot records a stray
/// call.
class RecordingObject {
public:
  static constexpr int kSlots = 256;

  RecordingObject();
  RecordingObject(const RecordingObject &) = delete;

  /// The interface pointer.
  void *pointer() { return &face_; }

  /// Makes `slot` a function of the given parameter types, in the calling convention of interface
  /// functions, that calls `body` with the places of its arguments, the interface pointer left out.
  void expect(int slot, std::vector<ffi_type *> parameters,
              std::function<HRESULT(void **arguments)> body);
  /// Makes the slot a stray one again.
  void forget();

  int references = 1;
  /// The interfaces that were asked for.
  std::vector<GUID> queries;
  /// What a query answers.
  HRESULT queryStatus = 0;
  int strayCalls = 0;

private:
  /// What the interface pointer points to.
  struct Face {
    void **table;
    RecordingObject *owner;
  };

  static RecordingObject &of(void *pointer) { return *static_cast<Face *>(pointer)->owner; }
  static HRESULT WRT_ABI queryInterface(void *self, const GUID *iid, void **result);
  static uint32_t WRT_ABI addRef(void *self);
  static uint32_t WRT_ABI release(void *self);
  static HRESULT WRT_ABI stray(void *self);
  static void enter(ffi_cif *cif, void *result, void **arguments, void *self);

  void *slots_[kSlots];
  Face face_{slots_, this};
  ffi_closure *closure_ = nullptr;
  void *code_ = nullptr;
  int live_ = -1;
  ffi_cif cif_{};
  std::vector<ffi_type *> types_;
  std::function<HRESULT(void **)> body_;
};

} // namespace wrt::test

#endif
