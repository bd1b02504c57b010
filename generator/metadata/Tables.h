#ifndef WRT_GENERATOR_METADATA_TABLES_H
#define WRT_GENERATOR_METADATA_TABLES_H

#include "generator/metadata/Container.h"
#include "generator/metadata/Schema.h"

#include <array>
#include <compare>
#include <stdexcept>

namespace bridgegen::metadata {

/// A row of a table; rows count from 1, and 0 is none.
struct Row {
  Table table = Table::Module;
  uint32_t number = 0;

  auto operator<=>(const Row &) const = default;
  explicit operator bool() const { return number != 0; }
};

/// Metadata that cannot be used: the message names file, place and reason.
class Refused : public std::runtime_error {
  using runtime_error::runtime_error;
};

/// The tables of one metadata file. Reads are checked and throw `Fault`; `in` makes a `Refused` of
/// that, which tells the row as well.
class Tables {
public:
  /// `path` is for messages; `file` are the contents, which must outlive this. Throws `Refused`.
  Tables(std::string path, std::string_view file);

  uint32_t count(Table table) const { return layouts_[static_cast<size_t>(table)].rows; }

  /// The number in a column, whatever it means.
  uint32_t number(Row row, unsigned column) const;
  std::string_view string(Row row, unsigned column) const;
  Bytes blob(Row row, unsigned column) const;
  /// The row that an index or a coded index names; none for 0.
  Row target(Row row, unsigned column) const;
  /// The rows of another table that belong to this one: from its index in `column` up to that of
  /// the next row. First and one behind the last.
  std::pair<uint32_t, uint32_t> range(Row row, unsigned column) const;
  /// What a coded index outside of a table means.
  Row decode(Coded kind, uint32_t value, size_t offset) const;

  /// Where in the file a row begins.
  size_t offset(Row row) const;
  /// `FILE: error: TypeDef row 3 at 0x1a4: problem`.
  std::string message(Row row, size_t offset, std::string problem) const;
  /// Throws what is wrong with a row.
  [[noreturn]] void refuse(Row row, const std::string &problem) const {
    throw Refused(message(row, offset(row), problem));
  }

  /// `read()`, with faults told as those of `row`.
  template <class Read>
  auto in(Row row, Read read) const {
    try {
      return read();
    } catch (const Fault &fault) {
      throw Refused(message(row, fault.offset, fault.problem));
    }
  }

private:
  struct Layout {
    uint32_t rows = 0;
    uint32_t rowSize = 0;
    size_t start = 0; ///< in the stream
    std::array<uint8_t, 9> offsets{};
    std::array<uint8_t, 9> widths{};
  };

  void open(std::string_view file);
  void arrange(uint8_t heapSizes);
  bool isWide(Coded kind) const;

  std::string path_;
  Container container_;
  std::array<Layout, kTables> layouts_;
};

} // namespace bridgegen::metadata

#endif
