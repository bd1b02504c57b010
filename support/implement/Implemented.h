#ifndef WRT_SUPPORT_IMPLEMENTED_H
#define WRT_SUPPORT_IMPLEMENTED_H

#include <WRTAbi.h>
#include <WRTBridge.h>
#include <WRTStatus.h>
#include <stdlib.h>

namespace wrt::support {

/// The base of an object that the layer hands to the Windows Runtime: everything that one with
/// these function tables has to answer apart from their own members. The identifiers come with each
/// object, since one table serves all instances of a generic interface. Objects are agile. The
/// count of references begins with 1.
template <class First, class... Rest>
class Implemented : public First, public Rest... {
public:
  /// From the C library: of C++'s there is none on every target. Null when memory runs out.
  static void *operator new(size_t size) noexcept { return malloc(size); }
  static void operator delete(void *object) { free(object); }

  HRESULT WRT_ABI QueryInterface(const GUID *iid, void **result) override {
    if (!iid || !result)
      return status::kPointer;
    *result = find(*iid);
    if (!*result)
      return status::kNoInterface;
    AddRef();
    return status::kOk;
  }
  uint32_t WRT_ABI AddRef() override {
    return __atomic_add_fetch(&references_, 1, __ATOMIC_RELAXED);
  }
  uint32_t WRT_ABI Release() override {
    const uint32_t remaining = __atomic_sub_fetch(&references_, 1, __ATOMIC_ACQ_REL);
    if (remaining == 0)
      delete this;
    return remaining;
  }
  HRESULT WRT_ABI GetIids(uint32_t *count, GUID **iids) override {
    if (!count || !iids)
      return status::kPointer;
    *count = 0;
    *iids = static_cast<GUID *>(WRTTaskMemAlloc(sizeof iids_));
    if (!*iids)
      return status::kOutOfMemory;
    for (const GUID &iid : iids_)
      (*iids)[(*count)++] = iid;
    return status::kOk;
  }
  /// The empty name: the object is of no runtime class.
  HRESULT WRT_ABI GetRuntimeClassName(HSTRING *name) override {
    if (!name)
      return status::kPointer;
    *name = nullptr;
    return status::kOk;
  }
  HRESULT WRT_ABI GetTrustLevel(int32_t *level) override {
    if (!level)
      return status::kPointer;
    *level = 0;
    return status::kOk;
  }

protected:
  /// The identifiers of the tables, in their order.
  template <class... Iids>
  explicit Implemented(const Iids &...iids) : iids_{iids...} {
    static_assert(sizeof...(Iids) == 1 + sizeof...(Rest));
  }
  virtual ~Implemented() = default;

private:
  void *find(const GUID &iid) {
    if (iid == abi::IUnknown::kIid || iid == abi::IInspectable::kIid ||
        iid == abi::IAgileObject::kIid)
      return static_cast<First *>(this);
    void *const tables[] = {static_cast<First *>(this), static_cast<Rest *>(this)...};
    for (size_t i = 0; i < 1 + sizeof...(Rest); ++i) {
      if (iid == iids_[i])
        return tables[i];
    }
    return nullptr;
  }

  const GUID iids_[1 + sizeof...(Rest)];
  uint32_t references_ = 1;
};

} // namespace wrt::support

#endif
