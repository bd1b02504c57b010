#include "tests/metadata/MetadataTool.h"

#include "generator/metadata/Tables.h"

#include <algorithm>
#include <map>

namespace bridgegen::test {

namespace {

using namespace metadata;

// ilasm's version string takes 12 bytes and that of WinRT 20; the header of the stream #US, which
// is empty where there is no code, takes the other 12.
const std::string kIlasmVersion("v4.0.30319\0\0", 12);
const std::string kVersion("WindowsRuntime 1.4\0\0", 20);
const std::string kUserStrings("#US\0", 4);

constexpr uint32_t kWindowsRuntimeFlag = 0x4000;

void put(std::string &image, size_t at, uint32_t value, size_t width) {
  for (size_t i = 0; i < width; ++i)
    image[at + i] = static_cast<char>(value >> 8 * i);
}

void setVersion(std::string &image) {
  const size_t root = image.find("BSJB");
  const size_t version = root + 16;
  if (root == image.npos || image.compare(version, kIlasmVersion.size(), kIlasmVersion) != 0)
    throw std::runtime_error("no metadata of ilasm's");
  const size_t headers = version + kIlasmVersion.size();
  // The first stream begins where the headers end; what lies behind them stays where it is.
  const size_t end = root + Bytes(image).u32(headers + 4);
  std::string rest = image.substr(headers, end - headers);
  rest.erase(rest.find(kUserStrings) - 8, 12);
  rest[2] = static_cast<char>(rest[2] - 1); // the number of streams
  rest.resize(end - version - kVersion.size());
  image.replace(version, end - version, kVersion + rest);
  put(image, root + 12, static_cast<uint32_t>(kVersion.size()), 4);
}

Row firstInterfaceOf(const Tables &tables, Row type) {
  for (uint32_t i = 1; i <= tables.count(Table::InterfaceImpl); ++i) {
    if (tables.target({Table::InterfaceImpl, i}, 0) == type)
      return {Table::InterfaceImpl, i};
  }
  throw std::runtime_error("a DefaultAttribute on a class without interfaces");
}

std::string_view attributeName(const Tables &tables, Row attribute) {
  const Row constructor = tables.target(attribute, 1);
  if (constructor.table != Table::MemberRef)
    return {};
  const Row type = tables.target(constructor, 0);
  return type.table == Table::TypeRef ? tables.string(type, 1) : std::string_view();
}

/// Attributes are sorted by what they are of, so the table is sorted again. ilasm mixes those of
/// one owner up; their values in the blob heap keep the order of the text.
void moveDefaults(std::string &image, const Tables &tables) {
  const std::span<const uint8_t> owners = tablesOf(Coded::HasCustomAttribute);
  const unsigned bits = tagBits(Coded::HasCustomAttribute);
  const bool isWide = std::ranges::any_of(owners, [&](uint8_t table) {
    return tables.count(static_cast<Table>(table)) >= 1U << (16 - bits);
  });
  const size_t width = isWide ? 4 : 2;
  const auto own = std::ranges::find(owners, static_cast<uint8_t>(Table::InterfaceImpl));
  const auto tag = static_cast<uint32_t>(own - owners.begin());

  const uint32_t count = tables.count(Table::CustomAttribute);
  const size_t start = tables.offset({Table::CustomAttribute, 1});
  const size_t size = tables.offset({Table::CustomAttribute, 2}) - start;
  std::multimap<std::pair<uint64_t, size_t>, std::string> rows;
  for (uint32_t i = 1; i <= count; ++i) {
    const Row attribute{Table::CustomAttribute, i};
    const size_t at = tables.offset(attribute);
    if (attributeName(tables, attribute) == "DefaultAttribute")
      put(image, at, firstInterfaceOf(tables, tables.target(attribute, 0)).number << bits | tag,
          width);
    rows.emplace(std::pair{Bytes(image).number(at, width), tables.blob(attribute, 2).offset()},
                 image.substr(at, size));
  }
  size_t at = start;
  for (const auto &[owner, row] : rows) {
    image.replace(at, size, row);
    at += size;
  }
}

} // namespace

std::string winmdOf(std::string image) {
  setVersion(image);
  const Tables tables("image", image);
  for (uint32_t i = 2; i <= tables.count(Table::TypeDef); ++i) {
    const Row type{Table::TypeDef, i};
    put(image, tables.offset(type), tables.number(type, 0) | kWindowsRuntimeFlag, 4);
  }
  moveDefaults(image, tables);
  return image;
}

} // namespace bridgegen::test
