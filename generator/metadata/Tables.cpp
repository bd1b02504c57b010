#include "generator/metadata/Tables.h"

#include <algorithm>
#include <charconv>

namespace bridgegen::metadata {

namespace {

std::string hexadecimal(size_t value) {
  char digits[16];
  return "0x" + std::string(digits, std::to_chars(digits, digits + sizeof digits, value, 16).ptr);
}

} // namespace

Tables::Tables(std::string path, std::string_view file) : path_(std::move(path)) {
  try {
    open(file);
  } catch (const Fault &fault) {
    throw Refused(path_ + ": error: at " + hexadecimal(fault.offset) + ": " + fault.problem);
  }
}

void Tables::open(std::string_view file) {
  container_ = openContainer(file);
  const Bytes &stream = container_.tables;
  const uint64_t valid = stream.u64(8);
  if (valid >> kTables)
    throw Fault{stream.offset(8), "tables of unknown numbers"};
  size_t at = 24;
  for (size_t i = 0; i < kTables; ++i) {
    if (!(valid >> i & 1))
      continue;
    layouts_[i].rows = stream.u32(at);
    // A row takes two bytes at least.
    if (layouts_[i].rows > stream.size() / 2)
      throw Fault{stream.offset(at), std::string(tableName(static_cast<Table>(i))) + " has " +
                                         std::to_string(layouts_[i].rows) +
                                         " rows, more than the file has room for"};
    at += 4;
  }
  arrange(stream.u8(6));
  for (Layout &layout : layouts_) {
    layout.start = at;
    stream.slice(at, size_t{layout.rows} * layout.rowSize);
    at += size_t{layout.rows} * layout.rowSize;
  }
}

void Tables::arrange(uint8_t heapSizes) {
  const auto width = [&](Column column) -> uint8_t {
    const auto wide = [](bool isWide) -> uint8_t { return isWide ? 4 : 2; };
    switch (column.kind) {
    case Column::Kind::Fixed:
      return column.argument;
    case Column::Kind::String:
      return wide(heapSizes & 1);
    case Column::Kind::Guid:
      return wide(heapSizes & 2);
    case Column::Kind::Blob:
      return wide(heapSizes & 4);
    case Column::Kind::Index:
      return wide(layouts_[column.argument].rows > 0xFFFF);
    case Column::Kind::Coded:
      return wide(isWide(static_cast<Coded>(column.argument)));
    }
    return 4;
  };
  for (size_t i = 0; i < kTables; ++i) {
    Layout &layout = layouts_[i];
    size_t number = 0;
    for (const Column column : columnsOf(static_cast<Table>(i))) {
      layout.offsets[number] = static_cast<uint8_t>(layout.rowSize);
      layout.widths[number] = width(column);
      layout.rowSize += layout.widths[number++];
    }
  }
}

bool Tables::isWide(Coded kind) const {
  const std::span<const uint8_t> tables = tablesOf(kind);
  return std::any_of(tables.begin(), tables.end(), [&](uint8_t table) {
    return table < kTables && layouts_[table].rows >= 1U << (16 - tagBits(kind));
  });
}

size_t Tables::offset(Row row) const {
  const Layout &layout = layouts_[static_cast<size_t>(row.table)];
  return container_.tables.offset(layout.start + size_t{row.number - 1} * layout.rowSize);
}

uint32_t Tables::number(Row row, unsigned column) const {
  const Layout &layout = layouts_[static_cast<size_t>(row.table)];
  if (row.number == 0 || row.number > layout.rows)
    throw Fault{container_.tables.offset(layout.start),
                std::string(tableName(row.table)) + " has no row " + std::to_string(row.number)};
  return static_cast<uint32_t>(container_.tables.number(
      layout.start + size_t{row.number - 1} * layout.rowSize + layout.offsets[column],
      layout.widths[column]));
}

std::string_view Tables::string(Row row, unsigned column) const {
  const uint32_t index = number(row, column);
  if (index >= container_.strings.size())
    throw Fault{offset(row), "string " + hexadecimal(index) + " is outside of #Strings"};
  return container_.strings.zeroTerminated(index);
}

Bytes Tables::blob(Row row, unsigned column) const {
  const uint32_t index = number(row, column);
  if (index >= container_.blobs.size())
    throw Fault{offset(row), "blob " + hexadecimal(index) + " is outside of #Blob"};
  Cursor cursor(container_.blobs.from(index));
  return cursor.take(cursor.compressed());
}

Row Tables::target(Row row, unsigned column) const {
  const Column kind = columnsOf(row.table)[column];
  const uint32_t value = number(row, column);
  if (kind.kind == Column::Kind::Coded)
    return decode(static_cast<Coded>(kind.argument), value, offset(row));
  const Row target{static_cast<Table>(kind.argument), value};
  if (value > count(target.table))
    throw Fault{offset(row),
                std::string(tableName(target.table)) + " has no row " + std::to_string(value)};
  return target;
}

Row Tables::decode(Coded kind, uint32_t value, size_t offset) const {
  const std::span<const uint8_t> tables = tablesOf(kind);
  const uint32_t tag = value & ((1U << tagBits(kind)) - 1);
  const uint32_t number = value >> tagBits(kind);
  if (tag >= tables.size() || tables[tag] == kTables)
    throw Fault{offset, "index " + hexadecimal(value) + " names no table"};
  const Row row{static_cast<Table>(tables[tag]), number};
  if (number > count(row.table))
    throw Fault{offset,
                std::string(tableName(row.table)) + " has no row " + std::to_string(number)};
  return row;
}

std::pair<uint32_t, uint32_t> Tables::range(Row row, unsigned column) const {
  const Table members = static_cast<Table>(columnsOf(row.table)[column].argument);
  const uint32_t first = number(row, column);
  const uint32_t end = row.number < count(row.table) ? number({row.table, row.number + 1}, column)
                                                     : count(members) + 1;
  if (first == 0 || first > end || end > count(members) + 1)
    throw Fault{offset(row), "rows " + std::to_string(first) + " to " + std::to_string(end) +
                                 " of " + tableName(members) + ", which has " +
                                 std::to_string(count(members))};
  return {first, end};
}

std::string Tables::message(Row row, size_t offset, std::string problem) const {
  // Names out of a broken file may be anything.
  std::replace_if(
      problem.begin(), problem.end(), [](unsigned char c) { return c < ' ' || c > '~'; }, '?');
  return path_ + ": error: " + tableName(row.table) + " row " + std::to_string(row.number) +
         " at " + hexadecimal(offset) + ": " + problem;
}

} // namespace bridgegen::metadata
