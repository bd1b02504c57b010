#ifndef WRT_COMPONENTS_GIVE_OUT_H
#define WRT_COMPONENTS_GIVE_OUT_H

#include "platform/linux/components/generic/Types.h"

namespace wrt::implement {

/// Answers a bulk read: `give(place)` fills one element after the other, `count` of them. All or
/// nothing: when one fails, those before it are taken back.
template <class T, class Give>
HRESULT giveOutMany(size_t count, Abi<T> *items, uint32_t *actual, Give give) {
  if (actual == nullptr)
    return status::kPointer;
  *actual = 0;
  if (items == nullptr && count != 0)
    return status::kPointer;
  for (size_t i = 0; i < count; ++i) {
    items[i] = Abi<T>{};
    const HRESULT status = give(&items[i]);
    if (status < 0) {
      while (i-- > 0) {
        T::dispose(items[i]);
        items[i] = Abi<T>{};
      }
      return status;
    }
  }
  *actual = static_cast<uint32_t>(count);
  return status::kOk;
}

} // namespace wrt::implement

#endif
