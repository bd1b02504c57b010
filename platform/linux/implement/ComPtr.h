#ifndef WRT_COM_PTR_H
#define WRT_COM_PTR_H

#include <WRTAbi.h>
#include <WRTStatus.h>
#include <concepts>
#include <cstddef>
#include <utility>

namespace wrt::implement {

/// A reference to an object through one of its interfaces (or through its own class), dropped at
/// the end of the scope.
template <class T>
class ComPtr {
public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}
  /// Adds a reference to a borrowed object; null is allowed.
  explicit ComPtr(T *object) : object_(object) { addReference(); }
  /// Takes over a reference (+1) that the caller owns.
  static ComPtr adopt(T *object) {
    ComPtr result;
    result.object_ = object;
    return result;
  }

  ComPtr(const ComPtr &other) : ComPtr(other.object_) {}
  ComPtr(ComPtr &&other) noexcept : object_(other.detach()) {}
  /// A pointer to a class converts to one to its interfaces.
  template <class U>
    requires std::convertible_to<U *, T *>
  ComPtr(const ComPtr<U> &other) : ComPtr(other.get()) {}
  template <class U>
    requires std::convertible_to<U *, T *>
  ComPtr(ComPtr<U> &&other) : object_(other.detach()) {}
  ComPtr &operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() { reset(); }

  /// Borrowed from this pointer.
  T *get() const { return object_; }
  T *operator->() const { return object_; }
  T &operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// Drops the reference.
  void reset() {
    if (T *object = std::exchange(object_, nullptr))
      object->Release();
  }
  /// Hands the reference (+1) to the caller.
  [[nodiscard]] T *detach() { return std::exchange(object_, nullptr); }
  /// Where an out-parameter puts a reference (+1); what was held is dropped first.
  [[nodiscard]] T **put() {
    reset();
    return &object_;
  }
  [[nodiscard]] void **putVoid() { return reinterpret_cast<void **>(put()); }

  /// Answers an out-parameter: `*out` becomes a reference of its own (+1) or null. Always `S_OK`,
  /// or `E_POINTER` for a null `out`, so that a getter's body can be this call.
  template <class U>
  HRESULT copyTo(U **out) const {
    if (out == nullptr)
      return status::kPointer;
    *out = ComPtr(*this).detach();
    return status::kOk;
  }

  /// The same object's interface `U`, or null when it has none.
  template <class U>
  ComPtr<U> as() const {
    ComPtr<U> result;
    if (object_ == nullptr || object_->QueryInterface(&U::kIid, result.putVoid()) < 0)
      return nullptr;
    return result;
  }

  friend bool operator==(const ComPtr &left, const ComPtr &right) = default;

private:
  void addReference() {
    if (object_ != nullptr)
      object_->AddRef();
  }

  T *object_ = nullptr;
};

} // namespace wrt::implement

#endif
