#include "PortableExecutable.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace wrt::pe {

namespace {

// Refuses images that no tool of ours makes, before memory is taken for them.
constexpr std::uint32_t kLargestImage = 64u << 20;

/// Reads little-endian values of a file and checks every access.
class FileReader {
public:
  explicit FileReader(const std::vector<std::uint8_t> &file) : file_(file) {}

  std::uint16_t u16(std::size_t offset) const { return read<std::uint16_t>(offset); }
  std::uint32_t u32(std::size_t offset) const { return read<std::uint32_t>(offset); }

  const std::uint8_t *bytes(std::size_t offset, std::size_t count) const {
    if (offset > file_.size() || count > file_.size() - offset)
      throw FormatError(fmt::format("the file ends before offset {:#x}", offset + count));
    return file_.data() + offset;
  }

  /// A section's name: 8 bytes, or a reference into the string table behind the symbols.
  std::string sectionName(std::size_t header, std::size_t stringTable) const {
    const char *text = reinterpret_cast<const char *>(bytes(header, 8));
    std::string name(text, std::find(text, text + 8, '\0'));
    if (stringTable == 0 || name.size() < 2 || name[0] != '/')
      return name;
    const std::size_t begin = stringTable + std::strtoul(name.c_str() + 1, nullptr, 10);
    std::size_t end = begin;
    while (*bytes(end, 1) != 0)
      ++end;
    return std::string(reinterpret_cast<const char *>(bytes(begin, end - begin)), end - begin);
  }

private:
  template <class T>
  T read(std::size_t offset) const {
    const std::uint8_t *data = bytes(offset, sizeof(T));
    T value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
      value = static_cast<T>(value | static_cast<T>(data[i]) << 8 * i);
    return value;
  }

  const std::vector<std::uint8_t> &file_;
};

} // namespace

Image Image::read(const std::filesystem::path &file) {
  if (std::filesystem::is_directory(file)) // which can be opened, and not read
    throw FormatError(fmt::format("cannot open {}: it is a folder", file.string()));
  std::ifstream stream(file, std::ios::binary);
  if (!stream)
    throw FormatError("cannot open " + file.string());
  return naming(file, [&] { return parse({std::istreambuf_iterator<char>(stream), {}}); });
}

Image Image::parse(const std::vector<std::uint8_t> &file) {
  const FileReader reader(file);
  if (reader.u16(0) != 0x5A4D)
    throw FormatError("no DOS signature");
  const std::size_t nt = reader.u32(0x3C);
  if (reader.u32(nt) != 0x00004550)
    throw FormatError("no NT signature");

  Image image;
  image.machine_ = reader.u16(nt + 4);
  const std::uint32_t sectionCount = reader.u16(nt + 6);
  const std::size_t symbols = reader.u32(nt + 12);
  const std::size_t symbolCount = reader.u32(nt + 16);
  const std::size_t stringTable = symbols ? symbols + 18 * symbolCount : 0;
  const std::uint32_t optionalSize = reader.u16(nt + 20);
  image.characteristics_ = reader.u16(nt + 22);
  const std::size_t optional = nt + 24;
  const std::uint16_t form = reader.u16(optional);
  if (form != 0x10B && form != 0x20B)
    throw FormatError("neither a PE32 nor a PE32+ image");
  const bool isWide = form == 0x20B;
  image.pointerSize_ = isWide ? 8 : 4;
  image.entryPoint_ = reader.u32(optional + 16);
  // The wide form has no base of data, and so its base of the image begins there.
  image.preferredBase_ =
      isWide ? reader.u32(optional + 24) | std::uint64_t{reader.u32(optional + 28)} << 32
             : reader.u32(optional + 28);
  const std::uint32_t size = reader.u32(optional + 56);
  const std::uint32_t headerSize = reader.u32(optional + 60);
  image.subsystem_ = reader.u16(optional + 68);
  image.dllCharacteristics_ = reader.u16(optional + 70);
  if (size > kLargestImage)
    throw FormatError(fmt::format("an image of {} bytes", size));
  if (headerSize > size)
    throw FormatError("the headers are larger than the image");

  image.memory_.resize(size);
  std::copy_n(reader.bytes(0, headerSize), headerSize, image.memory_.begin());
  for (std::size_t i = 0; i < sectionCount; ++i) {
    const std::size_t header = optional + optionalSize + 40 * i;
    Section section;
    section.name = reader.sectionName(header, stringTable);
    section.virtualSize = reader.u32(header + 8);
    section.rva = reader.u32(header + 12);
    section.fileSize = reader.u32(header + 16);
    section.characteristics = reader.u32(header + 36);
    if (section.rva > size || section.virtualSize > size - section.rva)
      throw FormatError(fmt::format("section {} leaves the image", section.name));
    const std::uint32_t copied = std::min(section.virtualSize, section.fileSize);
    std::copy_n(reader.bytes(reader.u32(header + 20), copied), copied,
                image.memory_.begin() + section.rva);
    image.sections_.push_back(std::move(section));
  }

  // Behind four sizes, of the stack and of the heap, as wide as pointers.
  const std::size_t directoryCount = optional + 72 + std::size_t{4} * image.pointerSize_ + 4;
  const std::uint32_t directories = reader.u32(directoryCount);
  const auto directory = [&](std::size_t index) {
    const std::size_t entry = directoryCount + 4 + 8 * index;
    return index < directories ? Directory{reader.u32(entry), reader.u32(entry + 4)} : Directory{};
  };
  image.readExports(directory(0));
  image.readImports(directory(1));
  image.readBaseRelocations(directory(5));
  return image;
}

const Section *Image::findSection(std::string_view name) const {
  const auto found = std::ranges::find(sections_, name, &Section::name);
  return found == sections_.end() ? nullptr : &*found;
}

const Section *Image::sectionAt(Rva address) const {
  const auto found =
      std::ranges::find_if(sections_, [=](const Section &s) { return s.contains(address); });
  return found == sections_.end() ? nullptr : &*found;
}

std::string Image::describe(Rva address) const {
  const Section *section = sectionAt(address);
  return section ? fmt::format("{}+{:#x}", section->name, address - section->rva)
                 : fmt::format("{:#x} (in no section)", address);
}

const Import *Image::importAt(Rva slot) const {
  const auto found = std::ranges::lower_bound(imports_, slot, {}, &Import::slot);
  return found == imports_.end() || found->slot != slot ? nullptr : &*found;
}

bool Image::hasBaseRelocation(Rva address) const {
  return std::ranges::binary_search(baseRelocations_, address, {}, &BaseRelocation::rva);
}

std::uint16_t Image::u16(Rva address) const {
  const std::uint8_t *data = bytes(address, 2);
  return static_cast<std::uint16_t>(data[0] | data[1] << 8);
}

std::uint32_t Image::u32(Rva address) const {
  const std::uint8_t *data = bytes(address, 4);
  return data[0] | data[1] << 8 | data[2] << 16 | static_cast<std::uint32_t>(data[3]) << 24;
}

std::uint64_t Image::word(Rva address) const {
  const std::uint64_t low = u32(address);
  return pointerSize_ == 4 ? low : low | std::uint64_t{u32(address + 4)} << 32;
}

std::string Image::string(Rva address) const {
  std::string text;
  while (const std::uint8_t c = u8(address++))
    text.push_back(static_cast<char>(c));
  return text;
}

const std::uint8_t *Image::bytes(Rva address, std::size_t count) const {
  if (address > memory_.size() || count > memory_.size() - address)
    throw FormatError(fmt::format("address {:#x} is outside the image", address));
  return memory_.data() + address;
}

void Image::readImports(Directory directory) {
  if (directory.rva == 0)
    return;
  for (Rva entry = directory.rva; u32(entry + 12) != 0; entry += 20) {
    const std::string library = string(u32(entry + 12));
    const Rva slots = u32(entry + 16);
    const Rva names = u32(entry) ? u32(entry) : slots;
    for (Rva offset = 0; word(names + offset) != 0; offset += pointerSize_) {
      const std::uint64_t value = word(names + offset);
      const bool isOrdinal = value >> (8 * pointerSize_ - 1);
      std::string name =
          isOrdinal ? fmt::format("#{}", value & 0xFFFF) : string(static_cast<Rva>(value) + 2);
      imports_.push_back({library, std::move(name), slots + offset});
    }
  }
  std::ranges::sort(imports_, {}, &Import::slot);
}

void Image::readExports(Directory directory) {
  if (directory.rva == 0)
    return;
  const std::uint32_t base = u32(directory.rva + 16);
  const std::uint32_t nameCount = u32(directory.rva + 24);
  const Rva functions = u32(directory.rva + 28);
  const Rva names = u32(directory.rva + 32);
  const Rva ordinals = u32(directory.rva + 36);
  for (std::uint32_t i = 0; i < nameCount; ++i) {
    const std::uint32_t index = u16(ordinals + 2 * i);
    exports_.push_back({string(u32(names + 4 * i)), u32(functions + 4 * index), base + index});
  }
}

void Image::readBaseRelocations(Directory directory) {
  const std::uint64_t end = static_cast<std::uint64_t>(directory.rva) + directory.size;
  for (Rva block = directory.rva; block + 8ull <= end;) {
    const Rva page = u32(block);
    const std::uint32_t length = u32(block + 4);
    if (length < 8)
      throw FormatError("a block of base relocations without a size");
    for (std::uint32_t i = 8; i + 2 <= length; i += 2) {
      const std::uint32_t entry = u16(block + i);
      const std::uint32_t kind = entry >> 12;
      if (kind == 0)
        continue; // padding
      const Rva rva = page + (entry & 0xFFF);
      if (kind != 3 && kind != 7 && kind != 10)
        throw FormatError(fmt::format("base relocation of kind {} at {:#x}", kind, rva));
      baseRelocations_.push_back({rva, static_cast<RelocationKind>(kind)});
    }
    block += length;
  }
  std::ranges::sort(baseRelocations_, {}, &BaseRelocation::rva);
}

} // namespace wrt::pe
