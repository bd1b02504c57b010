#ifndef WRT_TESTS_TEST_MACHINE_H
#define WRT_TESTS_TEST_MACHINE_H

#include "tests/catalogue/CatalogueTable.h"
#include "tests/exhaustive/Patterns.h"

#include <array>

namespace wrt::test {

/// A pointer of the machine, or a number that is passed as one.
using Word = std::uint64_t;

class MethodCall;

/// Where methods are called: what it takes to call one there, and to look at what it did. What
/// happens to its objects while a method runs it tells `current`. Failures of its own are
/// exceptions.
class TestMachine {
public:
  /// A WinRT object that answers every query with itself, unless it is to fail.
  struct Object {
    Word pointer;
    int &references;
    std::uint32_t &queryStatus;
  };
  /// How many live: objects, strings, blocks of task memory, delegates.
  using Counts = std::array<std::int64_t, 4>;

  TestMachine() = default;
  TestMachine(const TestMachine &) = delete;
  virtual ~TestMachine() = default;

  /// The object behind the receiver, which is every class's factory as well.
  virtual Object object() = 0;
  /// The object behind whatever is passed and handed out.
  virtual Object argument() = 0;

  virtual Word type(const std::string &className) = 0;
  virtual Word selector(const std::string &text) = 0;
  virtual Word send(Word receiver, const std::string &selector, Word argument = 0) = 0;
  virtual std::u16string stringText(Word string) = 0;
  virtual std::u16string handleText(Word handle) = 0;
  virtual bool isDelegate(Word object) = 0;
  virtual Bytes read(Word place, std::uint32_t size) = 0;
  virtual void write(Word place, const Bytes &bytes) = 0;

  /// Calls a method with a value of each type, the receiver and the selector first; its result.
  virtual Bytes enter(const catalogue::Method &method, const EncodedType &result,
                      const std::vector<EncodedType> &types, const std::vector<Bytes> &values) = 0;
  /// Releases what was autoreleased.
  virtual void drain() = 0;
  virtual Counts counts() = 0;

  // What is passed, made once: `kText` as a string and as a handle, an empty array, a block.
  Word text = 0;
  Word handle = 0;
  Word array = 0;
  Word block = 0;
  /// Room for a result, for the error, and for what pointers point at, `kRoomSize` bytes each.
  Word room = 0;
  static constexpr const char16_t *kText = u"crossing";
  static constexpr std::uint32_t kRoomSize = 64;
  static constexpr std::uint32_t kRooms = 16;

  /// The call that is under way.
  MethodCall *current = nullptr;
};

} // namespace wrt::test

#endif
