#ifndef WRT_PATCHER_FIXUP_PASS_H
#define WRT_PATCHER_FIXUP_PASS_H

#include "FixupRecord.h"
#include "MovePair.h"
#include "WritableSpan.h"

#include <cstring>

namespace wrt::startup {

/// Where a loaded image lies.
struct ImageRange {
  Address base;
  /// In bytes.
  std::uint32_t size;

  bool contains(Address address) const { return address - base < size; }
};

/// The records of a table (borrowed), in the order in which they are walked.
struct FixupRecords {
  const std::uint8_t *bytes;
  std::uint32_t count;

  FixupRecord operator[](std::uint32_t index) const {
    return FixupRecord(bytes + static_cast<std::size_t>(index) * kFixupRecordSize);
  }
};

/// Applies records to an image. Bytes outside the image are never written.
template <class Services>
class FixupWalk {
public:
  FixupWalk(const FixupRecords &records, const ImageRange &image, Services &services)
      : records_(records), image_(image), services_(services), body_(services), tail_(services) {}

  void run() {
    for (std::uint32_t i = 0; i < records_.count; ++i) {
      if (image_.contains(records_[i].target))
        apply(i);
    }
  }

private:
  void apply(std::uint32_t index) {
    const FixupRecord record = records_[index];
    switch (record.kind()) {
    case FixupRecord::kNothing:
      return;
    case FixupRecord::kWord:
      if (makeWritable(index))
        writeWord(at(record.target), value(record));
      return;
    case FixupRecord::kMovePair:
      if (makeWritable(index))
        setMovePair(at<std::uint16_t>(record.target), value(record));
      return;
    default:
      services_.abort();
    }
  }

  static std::uint32_t value(const FixupRecord &record) {
    return record.addend + readWord(at(record.slot));
  }

  /// Opens the pages of the record's patch; whether all of its bytes can be written. A patch may
  /// end on a page with other attributes than the one it begins on: that one is the tail.
  bool makeWritable(std::uint32_t index) {
    const FixupRecord record = records_[index];
    if (!image_.contains(record.last()))
      return false;
    if (!body_.covers(record.target)) {
      if (tail_.covers(record.target)) {
        body_.takeOver(tail_);
      } else {
        tail_.close();
        body_.open(record.target, endOfRun(index));
      }
    }
    if (body_.covers(record.last()))
      return body_.isWritable();
    if (!tail_.covers(record.last()))
      tail_.open(record.last(), record.last());
    return body_.isWritable() && tail_.isWritable();
  }

  /// The last address of the patches that follow on the same pages or the next ones.
  Address endOfRun(std::uint32_t index) {
    const std::uint32_t page = services_.pageSize();
    Address last = records_[index].last();
    while (++index < records_.count) {
      const FixupRecord next = records_[index];
      const bool near = (next.target & ~(page - 1)) <= (last & ~(page - 1)) + page;
      if (!near || next.target < records_[index - 1].target || !image_.contains(next.last()))
        break;
      if (next.last() > last)
        last = next.last();
    }
    return last;
  }

  const FixupRecords &records_;
  const ImageRange &image_;
  Services &services_;
  WritableSpan<Services> body_;
  WritableSpan<Services> tail_;
};

/// Asks for the base and size of the module that contains `address`; false when any service is
/// missing.
template <class Services>
bool findImage(const void *address, Services &services, ImageRange &image) {
  void *self = nullptr;
  if (!services.getModuleHandleEx(kUnchangedReferenceCount | kFromAddress, address, self))
    return false;
  void *kernel = nullptr;
  if (!services.getModuleHandleEx(kUnchangedReferenceCount, u"KERNELBASE.dll", kernel))
    return false;
  using GetModuleInformation =
      int (*)(void *process, void *module, ModuleInformation *information, std::uint32_t size);
  const auto getModuleInformation = reinterpret_cast<GetModuleInformation>(
      services.getProcAddress(kernel, "GetModuleInformation"));
  if (!getModuleInformation)
    return false;
  ModuleInformation information{};
  if (!getModuleInformation(services.getCurrentProcess(), self, &information, sizeof information))
    return false;
  image.base = static_cast<Address>(reinterpret_cast<std::uintptr_t>(information.base));
  image.size = information.size;
  return true;
}

/// The fixup pass: applies the table of `size` bytes to the image it lies in. A table whose header
/// is not the 16-byte `marker`, and a module that cannot be measured, leave everything as it is.
template <class Services>
void fixupPass(const std::uint8_t *table, std::uint32_t size, const std::uint8_t *marker,
               Services &services) {
  if (size < kFixupRecordSize || std::memcmp(table, marker, kFixupRecordSize) != 0)
    return;
  ImageRange image{};
  if (!findImage(table, services, image))
    return;

  FixupRecords records{table + kFixupRecordSize, size / kFixupRecordSize - 1};
  const std::size_t length = static_cast<std::size_t>(records.count) * kFixupRecordSize;
  void *sorted = services.allocate(length);
  if (sorted) {
    std::memcpy(sorted, records.bytes, length);
    services.sort(sorted, records.count, kFixupRecordSize, compareRecords);
    records.bytes = static_cast<const std::uint8_t *>(sorted);
  }
  FixupWalk<Services>(records, image, services).run();
  if (sorted)
    services.release(sorted);
}

} // namespace wrt::startup

#endif
