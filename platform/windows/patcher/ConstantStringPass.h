#ifndef WRT_PATCHER_CONSTANT_STRING_PASS_H
#define WRT_PATCHER_CONSTANT_STRING_PASS_H

#include "ImageHeaders.h"

namespace wrt::startup {

/// Gives each constant string of the image at `base` its class. A constant string is a record of
/// four pointers' size whose first word is the class pointer; the linker can only make that word
/// point at the import slot that holds the class.
template <class Services>
void constantStringPass(AddressOf<Services> base, Services &services) {
  using Address = AddressOf<Services>;
  const ImageHeaders<Address> headers(base, services);
  const auto strings = headers.find("cfstring");
  const auto imports = headers.find(".idata");
  constexpr std::uint32_t kStringSize = 4 * sizeof(Address);
  for (std::uint32_t i = strings.size / kStringSize; i-- > 0;) {
    std::uint8_t *classWord = at(strings.begin + i * kStringSize);
    const auto slot = readWord<Address>(classWord);
    if (imports.contains(slot))
      writeWord(classWord, readWord<Address>(at(slot)));
  }
}

} // namespace wrt::startup

#endif
