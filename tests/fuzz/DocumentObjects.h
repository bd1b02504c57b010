/// What the fuzzed operations on documents have in common.
#ifndef WRT_TESTS_DOCUMENT_OBJECTS_H
#define WRT_TESTS_DOCUMENT_OBJECTS_H

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/implement/StringHolder.h"

#include <abi/Windows.Data.Xml.Dom.abi.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace wrt::test {

using namespace implement;
using Node = ComPtr<abi::IXmlNode>;

/// Choices out of an input; 0 when it has ended.
class Choices {
public:
  Choices(const uint8_t *data, size_t size) : next_(data), end_(data + size) {}
  bool hasMore() const { return next_ != end_; }
  size_t below(size_t count) { return hasMore() && count != 0 ? *next_++ % count : 0; }
  template <class T, size_t count>
  const T &of(const T (&list)[count]) {
    return list[below(count)];
  }
  template <class T>
  T &of(std::vector<T> &list) {
    return list[below(list.size())];
  }

private:
  const uint8_t *next_, *end_;
};

using Operation = std::function<void()>;

/// Where an operation puts its answer, whatever interface that has.
struct Answer {
  ComPtr<abi::IUnknown> &place;
  template <class Interface>
  operator Interface **() const {
    return reinterpret_cast<Interface **>(place.put());
  }
};

/// Ends the process, saying what is wrong.
[[noreturn]] void fail(const std::string &what);

ComPtr<abi::IXmlDocument> newDocument(std::u16string_view xml);
/// Empty when there is none.
std::u16string xmlOf(const Node &node);

/// Operations of a grammar that a simple model of a tree understands, compared with it.
void compareWithModel(Choices &choices);

} // namespace wrt::test

#endif
