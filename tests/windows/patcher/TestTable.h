#ifndef WRT_TESTS_TEST_TABLE_H
#define WRT_TESTS_TEST_TABLE_H

#include "FixupPass.h"
#include "TestProcess.h"

#include <vector>

namespace wrt::startup::test {

/// A fixup table under construction, header included, for processes with addresses of that width.
template <class Address>
class TableOf {
public:
  TableOf() { add(0, 0, 0, 1); }

  TableOf &add(Address target, Address addend, Address slot, Address kindWord) {
    for (const Address word : {target, addend, slot, kindWord})
      for (std::size_t i = 0; i < sizeof word; ++i)
        bytes_.push_back(static_cast<std::uint8_t>(word >> 8 * i));
    return *this;
  }

  std::vector<std::uint8_t> &bytes() { return bytes_; }

  template <class Process>
  void apply(Process &process) const {
    const TableOf empty;
    fixupPass(bytes_.data(), static_cast<std::uint32_t>(bytes_.size()), empty.bytes_.data(),
              process);
  }

private:
  std::vector<std::uint8_t> bytes_;
};

using TestTable = TableOf<Address>;

} // namespace wrt::startup::test

#endif
