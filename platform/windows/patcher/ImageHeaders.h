#ifndef WRT_PATCHER_IMAGE_HEADERS_H
#define WRT_PATCHER_IMAGE_HEADERS_H

#include "FixupRecord.h"

#include <cstring>

namespace wrt::startup {

/// A section of the loaded image; empty when there is none of that name.
template <class Address>
struct Section {
  Address begin = 0;
  /// In bytes.
  std::uint32_t size = 0;

  bool contains(Address address) const { return address - begin < size; }
};

/// The section headers of an image as the loader mapped it (PE format, Microsoft PE and COFF
/// Specification 11.0).
template <class Address>
class ImageHeaders {
public:
  /// Asserts the two signatures; `services.assertionFailed` does not return.
  template <class Services>
  ImageHeaders(Address base, Services &services) : base_(base) {
    const std::uint8_t *dos = at(base);
    if (dos[0] != 'M' || dos[1] != 'Z') {
      services.assertionFailed(
          u"pDOSHeader->e_magic == IMAGE_DOS_SIGNATURE && \"expected a DOS signature\"", __LINE__);
    }
    const std::uint8_t *nt = at(base + readWord(dos + 0x3C));
    if (readWord(nt) != 0x00004550) {
      services.assertionFailed(
          u"pNTHeaders->Signature == IMAGE_NT_SIGNATURE && \"expected a NT signature\"", __LINE__);
    }
    count_ = nt[6] | nt[7] << 8;
    headers_ = nt + 24 + (nt[20] | nt[21] << 8);
  }

  /// Looks from the last header to the first. `name` is compared as the header's 8 bytes.
  Section<Address> find(const char *name) const {
    for (std::uint32_t i = count_; i-- > 0;) {
      const std::uint8_t *header = headers_ + std::size_t{i} * kHeaderSize;
      if (std::strncmp(reinterpret_cast<const char *>(header), name, 8) == 0)
        return {base_ + readWord(header + 12), readWord(header + 8)};
    }
    return {};
  }

private:
  static constexpr std::uint32_t kHeaderSize = 40;

  Address base_;
  const std::uint8_t *headers_;
  std::uint32_t count_;
};

} // namespace wrt::startup

#endif
