#ifndef WRT_COMPONENTS_GIVE_OUT_ARRAY_H
#define WRT_COMPONENTS_GIVE_OUT_ARRAY_H

#include "platform/linux/components/collections/GiveOut.h"

#include <WRTBridge.h>
#include <vector>

namespace wrt::implement {

/// Answers an array that the caller gets to own: `*values` is task memory with `*count` elements,
/// null for an empty array.
template <class T>
HRESULT giveOutArray(const std::vector<Stored<T>> &elements, uint32_t *count, Abi<T> **values) {
  if (count == nullptr || values == nullptr)
    return status::kPointer;
  *count = 0;
  *values = nullptr;
  if (elements.empty())
    return status::kOk;
  auto *block = static_cast<Abi<T> *>(WRTTaskMemAlloc(elements.size() * sizeof(Abi<T>)));
  if (block == nullptr)
    return status::kOutOfMemory;
  auto next = elements.begin();
  const HRESULT status = giveOutMany<T>(elements.size(), block, count,
                                        [&](Abi<T> *place) { return T::giveOut(*next++, place); });
  if (status < 0)
    WRTTaskMemFree(block);
  else
    *values = block;
  return status;
}

/// Keeps an array that somebody else owns (`values` may be null for `count` 0): `elements` is
/// written on success.
template <class T>
HRESULT storeArray(uint32_t count, const Abi<T> *values, std::vector<Stored<T>> &elements) {
  if (values == nullptr && count != 0)
    return status::kPointer;
  std::vector<Stored<T>> stored(count);
  for (uint32_t i = 0; i < count; ++i) {
    const HRESULT status = T::store(values[i], stored[i]);
    if (status < 0)
      return status;
  }
  elements = std::move(stored);
  return status::kOk;
}

} // namespace wrt::implement

#endif
