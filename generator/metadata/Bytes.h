#ifndef WRT_GENERATOR_METADATA_BYTES_H
#define WRT_GENERATOR_METADATA_BYTES_H

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace bridgegen::metadata {

/// What is wrong at an offset of a file; whoever knows the table and the row adds them.
struct Fault {
  size_t offset;
  std::string problem;
};

/// A part of a file. Every read is checked against its bounds and throws `Fault`. The file must
/// outlive it.
class Bytes {
public:
  Bytes() = default;
  explicit Bytes(std::string_view file)
      : bytes_(reinterpret_cast<const uint8_t *>(file.data()), file.size()) {}

  size_t size() const { return bytes_.size(); }
  /// Where in the file `at` is.
  size_t offset(size_t at = 0) const { return start_ + at; }

  uint8_t u8(size_t at) const { return static_cast<uint8_t>(number(at, 1)); }
  uint16_t u16(size_t at) const { return static_cast<uint16_t>(number(at, 2)); }
  uint32_t u32(size_t at) const { return static_cast<uint32_t>(number(at, 4)); }
  uint64_t u64(size_t at) const { return number(at, 8); }

  /// A little-endian number of `width` bytes, 8 at most.
  uint64_t number(size_t at, size_t width) const {
    need(at, width);
    uint64_t value = 0;
    for (size_t i = 0; i < width; ++i)
      value |= uint64_t{bytes_[at + i]} << 8 * i;
    return value;
  }

  Bytes slice(size_t at, size_t size) const {
    need(at, size);
    Bytes part;
    part.bytes_ = bytes_.subspan(at, size);
    part.start_ = start_ + at;
    return part;
  }
  Bytes from(size_t at) const {
    need(at, 0);
    return slice(at, size() - at);
  }

  std::string_view text() const {
    return {reinterpret_cast<const char *>(bytes_.data()), bytes_.size()};
  }
  /// Up to the next zero byte.
  std::string_view zeroTerminated(size_t at) const {
    const std::string_view rest = from(at).text();
    const size_t end = rest.find('\0');
    if (end == rest.npos)
      throw Fault{offset(at), "text without an end"};
    return rest.substr(0, end);
  }

private:
  void need(size_t at, size_t size) const {
    if (at > bytes_.size() || size > bytes_.size() - at)
      throw Fault{offset(at), std::to_string(size) + " bytes wanted, " +
                                  std::to_string(bytes_.size() - std::min(at, bytes_.size())) +
                                  " left"};
  }

  std::span<const uint8_t> bytes_;
  size_t start_ = 0;
};

/// Reads a blob from its first byte to its last.
class Cursor {
public:
  explicit Cursor(Bytes bytes) : bytes_(bytes) {}

  size_t offset() const { return bytes_.offset(at_); }
  bool atEnd() const { return at_ == bytes_.size(); }
  uint8_t peek() const { return bytes_.u8(at_); }
  uint8_t u8() { return static_cast<uint8_t>(number(1)); }
  uint64_t number(size_t width) {
    const uint64_t value = bytes_.number(at_, width);
    at_ += width;
    return value;
  }
  /// A number in the compressed form of signatures: one, two or four bytes, big-endian.
  uint32_t compressed() {
    const uint32_t first = u8();
    if (first < 0x80)
      return first;
    if (first < 0xC0)
      return (first & 0x3F) << 8 | u8();
    if (first >= 0xE0)
      throw Fault{offset() - 1, "no compressed number"};
    uint32_t value = first & 0x1F;
    for (int i = 0; i < 3; ++i)
      value = value << 8 | u8();
    return value;
  }
  Bytes take(size_t size) {
    const Bytes part = bytes_.slice(at_, size);
    at_ += size;
    return part;
  }

private:
  Bytes bytes_;
  size_t at_ = 0;
};

} // namespace bridgegen::metadata

#endif
