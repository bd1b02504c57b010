#ifndef WRT_IMPLEMENT_OBJECT_H
#define WRT_IMPLEMENT_OBJECT_H

#include <WRTAbi.h>
#include <atomic>
#include <initializer_list>
#include <string_view>

namespace wrt::implement {

/// What objects of components share whatever their interfaces are: the count of references, which
/// starts at 1, and their place in the ledger.
class WRT_DLLEXPORT Object {
public:
  Object(const Object &) = delete;
  Object &operator=(const Object &) = delete;

protected:
  Object();
  virtual ~Object();

  /// The runtime class, as `GetRuntimeClassName` answers it; empty for objects that are of none.
  virtual std::u16string_view runtimeClassName() const { return {}; }

  uint32_t retain();
  /// Destroys the object with the last reference.
  uint32_t release();

  /// One of an object's interfaces.
  struct Interface {
    GUID iid;
    bool isInspectable; ///< a WinRT interface
  };
  /// `GetIids` for an object with these interfaces: tells those that are WinRT interfaces.
  static HRESULT copyIids(std::initializer_list<Interface> own, uint32_t *count, GUID **iids);
  HRESULT copyRuntimeClassName(HSTRING *name) const;

private:
  std::atomic<uint32_t> references_{1};
};

} // namespace wrt::implement

#endif
