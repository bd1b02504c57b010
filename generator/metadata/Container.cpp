#include "generator/metadata/Container.h"

#include <algorithm>
#include <map>
#include <vector>

namespace bridgegen::metadata {

namespace {

constexpr uint32_t kPeSignature = 0x00004550;
constexpr uint32_t kMetadataSignature = 0x424A5342;
constexpr size_t kCoffHeader = 24; ///< behind the PE signature's beginning
constexpr size_t kSectionHeader = 40;
constexpr unsigned kCliDirectory = 14;

/// A PE image as far as addresses go.
class Image {
public:
  explicit Image(Bytes file) : file_(file) {
    if (file.size() < 2 || file.u16(0) != 0x5A4D)
      throw Fault{0, "no PE image: it does not begin with 'MZ'"};
    header_ = file.u32(0x3C);
    if (file.u32(header_) != kPeSignature)
      throw Fault{header_, "no PE image: the signature is missing"};
  }

  /// The bytes that a data directory's entry tells of.
  Bytes directory(unsigned index) const {
    const size_t optional = header_ + kCoffHeader;
    const size_t entries = optional + (file_.u16(optional) == 0x20B ? 112 : 96);
    if (file_.u32(entries - 4) <= index)
      throw Fault{entries - 4, "no CLI header"};
    return at(entries + size_t{index} * 8);
  }

  /// The bytes of an address and a size that stand at `pair`.
  Bytes at(size_t pair) const {
    const uint32_t address = file_.u32(pair);
    const uint32_t size = file_.u32(pair + 4);
    const size_t sections = header_ + kCoffHeader + file_.u16(header_ + 20);
    for (unsigned i = 0; i < file_.u16(header_ + 6); ++i) {
      const size_t section = sections + i * kSectionHeader;
      const uint32_t start = file_.u32(section + 12);
      const uint32_t length = file_.u32(section + 16);
      if (address >= start && address - start < length)
        return file_.slice(file_.u32(section + 20), length).slice(address - start, size);
    }
    throw Fault{pair, "an address that is in no section"};
  }

private:
  Bytes file_;
  size_t header_ = 0;
};

std::map<std::string_view, Bytes> streams(Bytes root, size_t at) {
  std::map<std::string_view, Bytes> streams;
  std::vector<std::pair<size_t, size_t>> taken;
  const unsigned count = root.u16(at + 2);
  at += 4;
  for (unsigned i = 0; i < count; ++i) {
    const Bytes stream = root.slice(root.u32(at), root.u32(at + 4));
    const std::string_view name = root.zeroTerminated(at + 8);
    if (!streams.emplace(name, stream).second)
      throw Fault{root.offset(at), "stream '" + std::string(name) + "' occurs twice"};
    if (stream.size())
      taken.emplace_back(stream.offset(), stream.offset(stream.size()));
    at += 8 + (name.size() + 4) / 4 * 4;
  }
  std::sort(taken.begin(), taken.end());
  for (size_t i = 1; i < taken.size(); ++i) {
    if (taken[i].first < taken[i - 1].second)
      throw Fault{taken[i].first, "streams overlap"};
  }
  return streams;
}

} // namespace

Container openContainer(std::string_view file) {
  const Image image{Bytes(file)};
  const Bytes cli = image.directory(kCliDirectory);
  cli.slice(0, 16);
  const Bytes root = image.at(cli.offset(8));
  if (root.u32(0) != kMetadataSignature)
    throw Fault{root.offset(), "no metadata: the signature 'BSJB' is missing"};

  Container container;
  const size_t versionSize = root.u32(12);
  const std::string_view version = root.slice(16, versionSize).text();
  container.version = version.substr(0, version.find('\0'));
  if (!container.version.starts_with("WindowsRuntime 1."))
    throw Fault{root.offset(16), "no Windows metadata: its version is '" +
                                     std::string(container.version.substr(0, 40)) +
                                     "', not 'WindowsRuntime 1.x'"};

  std::map<std::string_view, Bytes> found = streams(root, 16 + versionSize);
  for (const auto &[name, stream] : {std::pair{"#~", &container.tables},
                                     {"#Strings", &container.strings},
                                     {"#Blob", &container.blobs}}) {
    const auto place = found.find(name);
    if (place == found.end())
      throw Fault{root.offset(), "stream '" + std::string(name) + "' is missing"};
    *stream = place->second;
  }
  return container;
}

} // namespace bridgegen::metadata
