/// Lists that tell about their changes: `makeObservableVector<Inspectable>(&vector, {...})`.
#ifndef WRT_COMPONENTS_OBSERVABLE_VECTOR_H
#define WRT_COMPONENTS_OBSERVABLE_VECTOR_H

#include "platform/linux/components/collections/Vector.h"
#include "platform/linux/implement/EventSource.h"

#include <abi/Windows.Foundation.Collections.abi.h>

namespace wrt::implement {

/// What a vector tells with each change. Its bridge is a proxy, so its members are not declared.
struct IVectorChangedEventArgs : abi::IVectorChangedEventArgs {
  virtual HRESULT WRT_ABI get_CollectionChange(int32_t *change) = 0;
  /// 0 when all of the vector changed.
  virtual HRESULT WRT_ABI get_Index(uint32_t *index) = 0;

protected:
  ~IVectorChangedEventArgs() = default;
};

/// The arguments of one change.
class VectorChange final : public Implements<IVectorChangedEventArgs> {
public:
  VectorChange(int32_t change, uint32_t index) : change_(change), index_(index) {}

  HRESULT WRT_ABI get_CollectionChange(int32_t *change) override { return answer(change_, change); }
  HRESULT WRT_ABI get_Index(uint32_t *index) override { return answer(index_, index); }

private:
  template <class T>
  static HRESULT answer(T value, T *out) {
    if (out == nullptr)
      return status::kPointer;
    *out = value;
    return status::kOk;
  }

  const int32_t change_;
  const uint32_t index_;
};

/// A list that tells about each change, on the thread that made it and after it was made.
template <class T, class... Others>
class ObservableVectorObject : public VectorObject<T, IObservableVector<T>, Others...> {
public:
  using VectorObject<T, IObservableVector<T>, Others...>::VectorObject;

  HRESULT WRT_ABI add_VectorChanged(VectorChangedEventHandler<T> *handler,
                                    WRTEventRegistrationToken *token) override {
    return vectorChanged_.add(handler, token);
  }
  HRESULT WRT_ABI remove_VectorChanged(WRTEventRegistrationToken token) override {
    return vectorChanged_.remove(token);
  }

protected:
  void changed(int32_t change, uint32_t index) override {
    const auto event = make<VectorChange>(change, index);
    vectorChanged_.raise(static_cast<IObservableVector<T> *>(this),
                         static_cast<IVectorChangedEventArgs *>(event.get()));
  }

private:
  EventSource<VectorChangedEventHandler<T>> vectorChanged_;
};

template <class T>
using ObservableVector = ObservableVectorObject<T>;

/// A new list that tells about its changes, with these elements to begin with; `*vector` is +1. The
/// same object is the `IVector<T>` that changes it.
template <class T, class Declared>
HRESULT makeObservableVector(Declared **vector, Items<T> items = {}) {
  return handOut<IObservableVector<T>>(make<ObservableVector<T>>(std::move(items)), vector);
}

} // namespace wrt::implement

#endif
