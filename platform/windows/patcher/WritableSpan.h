#ifndef WRT_PATCHER_WRITABLE_SPAN_H
#define WRT_PATCHER_WRITABLE_SPAN_H

#include "Services.h"

namespace wrt::startup {

/// Pages that can be written as long as this object has them open. Pages that were writable before
/// are left as they are; others get back the protection they had. A span never leaves the region in
/// which it was opened, because one call restores one protection.
template <class Services>
class WritableSpan {
  using Address = AddressOf<Services>;

public:
  explicit WritableSpan(Services &services) : services_(services) {}
  WritableSpan(const WritableSpan &) = delete;
  WritableSpan &operator=(const WritableSpan &) = delete;
  ~WritableSpan() { close(); }

  bool covers(Address address) const { return address - begin_ < size_; }
  /// Whether what is covered can be written: false when the system refused.
  bool isWritable() const { return writable_; }

  /// Opens the pages from that of `first` to that of `last`, as far as their attributes are equal.
  void open(Address first, Address last) {
    close();
    const Address page = services_.pageSize();
    MemoryRegion<Address> region{};
    begin_ = first & ~(page - 1);
    if (!services_.virtualQuery(first, region)) {
      size_ = page;
      return;
    }
    const Address available = region.begin + region.size - begin_;
    if (region.protection & (kPageReadWrite | kPageExecuteReadWrite)) {
      size_ = available;
      writable_ = true;
      return;
    }
    const Address wanted = (last & ~(page - 1)) - begin_ + page;
    size_ = wanted < available ? wanted : available;
    changed_ = services_.virtualProtect(begin_, size_, kPageExecuteReadWrite, previous_);
    writable_ = changed_;
  }

  /// Puts the protection back.
  void close() {
    if (changed_) {
      std::uint32_t ignored = 0;
      services_.virtualProtect(begin_, size_, previous_, ignored);
    }
    size_ = 0;
    changed_ = writable_ = false;
  }

  /// Closes this span and goes on with the other's pages; the other is empty afterwards.
  void takeOver(WritableSpan &other) {
    close();
    begin_ = other.begin_;
    size_ = other.size_;
    previous_ = other.previous_;
    changed_ = other.changed_;
    writable_ = other.writable_;
    other.size_ = 0;
    other.changed_ = other.writable_ = false;
  }

private:
  Services &services_;
  Address begin_ = 0;
  Address size_ = 0;
  std::uint32_t previous_ = 0;
  bool changed_ = false;
  bool writable_ = false;
};

} // namespace wrt::startup

#endif
