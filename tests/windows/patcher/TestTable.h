#ifndef WRT_TESTS_TEST_TABLE_H
#define WRT_TESTS_TEST_TABLE_H

#include "FixupPass.h"
#include "TestProcess.h"

#include <vector>

namespace wrt::startup::test {

inline constexpr std::uint8_t kMarker[16] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};

/// A fixup table under construction, header included.
class TestTable {
public:
  TestTable() : bytes_(kMarker, kMarker + 16) {}

  TestTable &add(std::uint32_t target, std::uint32_t addend, Address slot, std::uint32_t kindWord) {
    for (const std::uint32_t word : {target, addend, slot, kindWord})
      for (int i = 0; i < 4; ++i)
        bytes_.push_back(static_cast<std::uint8_t>(word >> 8 * i));
    return *this;
  }

  std::vector<std::uint8_t> &bytes() { return bytes_; }

  void apply(TestProcess &process) const {
    fixupPass(bytes_.data(), static_cast<std::uint32_t>(bytes_.size()), kMarker, process);
  }

private:
  std::vector<std::uint8_t> bytes_;
};

} // namespace wrt::startup::test

#endif
