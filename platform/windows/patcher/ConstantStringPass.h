#ifndef WRT_PATCHER_CONSTANT_STRING_PASS_H
#define WRT_PATCHER_CONSTANT_STRING_PASS_H

#include "ImageHeaders.h"

namespace wrt::startup {

/// Gives each constant string of the image at `base` its class. A constant string is a record of 16
/// bytes whose first word is the class pointer; the linker can only make that word point at the
/// import slot that holds the class.
template <class Services>
void constantStringPass(Address base, Services &services) {
  const ImageHeaders headers(base, services);
  const Section strings = headers.find("cfstring");
  const Section imports = headers.find(".idata");
  constexpr std::uint32_t kStringSize = 16;
  for (std::uint32_t i = strings.size / kStringSize; i-- > 0;) {
    std::uint8_t *classWord = at(strings.begin + i * kStringSize);
    const Address slot = readWord(classWord);
    if (imports.contains(slot))
      writeWord(classWord, readWord(at(slot)));
  }
}

} // namespace wrt::startup

#endif
