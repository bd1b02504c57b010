#ifndef WRT_TOOLS_PORTABLE_EXECUTABLE_H
#define WRT_TOOLS_PORTABLE_EXECUTABLE_H

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace wrt::pe {

/// The file is not a PE32 or PE32+ image, or something in it points outside of it.
struct FormatError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What `read` returns. The `FormatError` that it throws gets the file's name in front.
template <class Read>
auto naming(const std::filesystem::path &file, const Read &read) {
  try {
    return read();
  } catch (const FormatError &error) {
    throw FormatError(file.string() + ": " + error.what());
  }
}

/// A place in the image, counted from its base.
using Rva = std::uint32_t;

struct Section {
  std::string name;
  Rva rva;
  /// Sizes in bytes.
  std::uint32_t virtualSize;
  std::uint32_t fileSize;
  std::uint32_t characteristics;

  bool contains(Rva address) const { return address - rva < virtualSize; }
  bool isReadable() const { return characteristics & 0x40000000; }
  bool isWritable() const { return characteristics & 0x80000000; }
  bool isExecutable() const { return characteristics & 0x20000000; }
};

struct Import {
  std::string library;
  std::string name;
  /// The pointer that the loader fills.
  Rva slot;
};

struct Export {
  std::string name;
  Rva rva;
  std::uint32_t ordinal;
};

/// Kinds of base relocations that an ARM image has, of 32 or of 64 bits (Microsoft PE and COFF
/// Specification 11.0).
enum class RelocationKind : std::uint8_t { kWord = 3, kThumbMove = 7, kWideWord = 10 };

struct BaseRelocation {
  Rva rva;
  RelocationKind kind;
};

/// An image, laid out as the loader maps it at its preferred base but with nothing applied yet.
/// Every reading function throws `FormatError` when it would leave the image.
class Image {
public:
  /// The errors name the file.
  static Image read(const std::filesystem::path &file);
  static Image parse(const std::vector<std::uint8_t> &file);

  std::uint16_t machine() const { return machine_; }
  std::uint16_t characteristics() const { return characteristics_; }
  std::uint16_t dllCharacteristics() const { return dllCharacteristics_; }
  std::uint16_t subsystem() const { return subsystem_; }
  std::uint64_t preferredBase() const { return preferredBase_; }
  /// In bytes: 4 in a PE32 image, 8 in a PE32+ one.
  std::uint32_t pointerSize() const { return pointerSize_; }
  Rva entryPoint() const { return entryPoint_; }
  /// In memory, in bytes.
  std::uint32_t size() const { return static_cast<std::uint32_t>(memory_.size()); }

  const std::vector<Section> &sections() const { return sections_; }
  /// The section of that name, or null.
  const Section *findSection(std::string_view name) const;
  /// The section that contains the address, or null.
  const Section *sectionAt(Rva address) const;
  /// An address for people: section and offset.
  std::string describe(Rva address) const;

  const std::vector<Import> &imports() const { return imports_; }
  /// The import whose slot is at the address, or null.
  const Import *importAt(Rva slot) const;
  const std::vector<Export> &exports() const { return exports_; }
  /// In ascending order of addresses.
  const std::vector<BaseRelocation> &baseRelocations() const { return baseRelocations_; }
  bool hasBaseRelocation(Rva address) const;

  const std::vector<std::uint8_t> &memory() const { return memory_; }
  std::uint8_t u8(Rva address) const { return *bytes(address, 1); }
  std::uint16_t u16(Rva address) const;
  std::uint32_t u32(Rva address) const;
  /// A word as wide as a pointer.
  std::uint64_t word(Rva address) const;
  std::string string(Rva address) const;
  /// The address in a pointer of the image as an RVA.
  Rva pointer(Rva address) const { return static_cast<Rva>(word(address) - preferredBase_); }

private:
  struct Directory {
    Rva rva = 0;
    std::uint32_t size = 0;
  };

  const std::uint8_t *bytes(Rva address, std::size_t count) const;
  void readImports(Directory directory);
  void readExports(Directory directory);
  void readBaseRelocations(Directory directory);

  std::uint16_t machine_ = 0;
  std::uint16_t characteristics_ = 0;
  std::uint16_t dllCharacteristics_ = 0;
  std::uint16_t subsystem_ = 0;
  std::uint64_t preferredBase_ = 0;
  std::uint32_t pointerSize_ = 4;
  Rva entryPoint_ = 0;
  std::vector<Section> sections_;
  std::vector<Import> imports_;
  std::vector<Export> exports_;
  std::vector<BaseRelocation> baseRelocations_;
  std::vector<std::uint8_t> memory_;
};

} // namespace wrt::pe

#endif
