#ifndef WRT_PATCHER_FIXUP_PASS_H
#define WRT_PATCHER_FIXUP_PASS_H

#include "FixupRecord.h"
#include "WritableSpan.h"

#include <cstring>

namespace wrt::startup {

/// Where a loaded image lies.
template <class Address>
struct ImageRange {
  Address base;
  /// In bytes.
  std::uint32_t size;

  bool contains(Address address) const { return address - base < size; }
};

/// The records of a table (borrowed), in the order in which they are walked.
template <class Record>
struct FixupRecords {
  const std::uint8_t *bytes;
  std::uint32_t count;

  Record operator[](std::uint32_t index) const {
    return Record(bytes + static_cast<std::size_t>(index) * Record::kSize);
  }
};

/// Applies records to an image. Bytes outside the image are never written.
template <class Services>
class FixupWalk {
  using Architecture = typename Services::Architecture;
  using Address = typename Architecture::Address;
  using Record = FixupRecord<Architecture>;

public:
  FixupWalk(const FixupRecords<Record> &records, const ImageRange<Address> &image,
            Services &services)
      : records_(records), image_(image), services_(services), body_(services), tail_(services) {}

  void run() {
    for (std::uint32_t i = 0; i < records_.count; ++i) {
      if (image_.contains(records_[i].target))
        apply(i);
    }
  }

private:
  void apply(std::uint32_t index) {
    const Record record = records_[index];
    const std::uint32_t kind = record.kind();
    if (kind == Record::kNothing)
      return;
    if (kind != Record::kWord && kind != Record::kInstructions)
      services_.abort();
    if (!makeWritable(index))
      return;
    const Address value = record.addend + readWord<Address>(at(record.slot));
    if (kind == Record::kWord)
      writeWord(at(record.target), value);
    else
      Architecture::setInstructions(at(record.target), value);
  }

  /// Opens the pages of the record's patch; whether all of its bytes can be written. A patch may
  /// end on a page with other attributes than the one it begins on: that one is the tail.
  bool makeWritable(std::uint32_t index) {
    const Record record = records_[index];
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
    const Address page = services_.pageSize();
    Address last = records_[index].last();
    while (++index < records_.count) {
      const Record next = records_[index];
      const bool near = (next.target & ~(page - 1)) <= (last & ~(page - 1)) + page;
      if (!near || next.target < records_[index - 1].target || !image_.contains(next.last()))
        break;
      if (next.last() > last)
        last = next.last();
    }
    return last;
  }

  const FixupRecords<Record> &records_;
  const ImageRange<Address> &image_;
  Services &services_;
  WritableSpan<Services> body_;
  WritableSpan<Services> tail_;
};

/// Asks for the base and size of the module that contains `address`; false when any service is
/// missing.
template <class Services>
bool findImage(const void *address, Services &services, ImageRange<AddressOf<Services>> &image) {
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
  image.base = static_cast<AddressOf<Services>>(reinterpret_cast<std::uintptr_t>(information.base));
  image.size = information.size;
  return true;
}

/// The fixup pass: applies the table of `size` bytes to the image it lies in. A table whose header
/// is not `marker`, which is as long as a record, and a module that cannot be measured, leave
/// everything as it is.
template <class Services>
void fixupPass(const std::uint8_t *table, std::uint32_t size, const std::uint8_t *marker,
               Services &services) {
  using Record = FixupRecord<typename Services::Architecture>;
  if (size < Record::kSize || std::memcmp(table, marker, Record::kSize) != 0)
    return;
  ImageRange<AddressOf<Services>> image{};
  if (!findImage(table, services, image))
    return;

  FixupRecords<Record> records{table + Record::kSize, size / Record::kSize - 1};
  const std::size_t length = static_cast<std::size_t>(records.count) * Record::kSize;
  void *sorted = services.allocate(length);
  if (sorted) {
    std::memcpy(sorted, records.bytes, length);
    services.sort(sorted, records.count, Record::kSize, Record::compare);
    records.bytes = static_cast<const std::uint8_t *>(sorted);
  }
  FixupWalk<Services>(records, image, services).run();
  if (sorted)
    services.release(sorted);
}

} // namespace wrt::startup

#endif
