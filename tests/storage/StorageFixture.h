#ifndef WRT_TESTS_STORAGE_FIXTURE_H
#define WRT_TESTS_STORAGE_FIXTURE_H

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/async/ThreadPool.h"
#include "platform/linux/implement/StringHolder.h"
#include "tests/support/Cell.h"

#include <cstring>
#include <filesystem>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace wrt::test {

using namespace implement;

/// Lets the pool's threads drop what they hold before the running cell's ledger is compared.
void settleAfterwards();

/// A new folder that goes away with everything in it. The pool's threads drop what they hold before
/// the running cell's ledger is compared.
class TemporaryFolder {
public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder &) = delete;
  TemporaryFolder &operator=(const TemporaryFolder &) = delete;

  std::filesystem::path path() const { return path_; }
  /// Makes a file with that content; its path.
  std::filesystem::path add(const std::string &name, const std::string &content) const;

private:
  std::filesystem::path path_;
};

std::string contentOf(const std::filesystem::path &path);
StringHolder text(const std::string &utf8);
std::string utf8(const StringHolder &text);

/// A class's static interface.
template <class Interface>
ComPtr<Interface> statics(std::u16string_view className) {
  return activation::findFactory(className).as<Interface>();
}

/// An argument as members take it: texts as handles, references as pointers; anything else is
/// itself.
template <class T>
auto passed(const T &argument) {
  if constexpr (std::is_convertible_v<T, std::filesystem::path> && !std::is_null_pointer_v<T>)
    return text(std::filesystem::path(argument).string());
  else
    return argument;
}
template <class T>
auto raw(const T &argument) {
  if constexpr (requires { argument.get(); })
    return argument.get();
  else
    return argument;
}

/// Calls a member of one of `object`'s interfaces.
template <class Object, class Interface, class... Parameters, class... Arguments>
HRESULT call(const ComPtr<Object> &object, HRESULT (WRT_ABI Interface::*member)(Parameters...),
             const Arguments &...arguments) {
  return (object.template as<Interface>().get()->*member)(raw(passed(arguments))...);
}

/// What a member answers through its last parameter: text as UTF-8, an object as a reference. After
/// a failure "failed", null or bytes of 0xCC.
template <class Object, class Interface, class... Parameters, class... Arguments>
auto answer(const ComPtr<Object> &object, HRESULT (WRT_ABI Interface::*member)(Parameters...),
            const Arguments &...arguments) {
  using Place = std::tuple_element_t<sizeof...(Arguments), std::tuple<Parameters...>>;
  using Answer = std::remove_pointer_t<Place>;
  if constexpr (std::is_same_v<Answer, HSTRING>) {
    StringHolder value;
    return call(object, member, arguments..., value.put()) < 0 ? "failed" : utf8(value);
  } else if constexpr (std::is_pointer_v<Answer>) {
    ComPtr<std::remove_pointer_t<Answer>> value;
    call(object, member, arguments..., value.put());
    return value;
  } else {
    Answer value{};
    if (call(object, member, arguments..., &value) < 0)
      std::memset(&value, 0xCC, sizeof value);
    return value;
  }
}

/// A new default instance of a class.
template <class Interface>
ComPtr<Interface> activate(std::u16string_view className) {
  return answer(activation::findFactory(className), &abi::IActivationFactory::ActivateInstance)
      .template as<Interface>();
}

/// Calls `object`'s member with the first of `arguments`, waits for the end of the operation that
/// it answers and gives its outcome, or the failure to start it. A last argument that the member
/// does not take is the place of the operation's result (+1 for objects).
template <class Object, class Interface, class... Parameters, class... Arguments>
HRESULT outcome(const ComPtr<Object> &object, HRESULT (WRT_ABI Interface::*member)(Parameters...),
                const Arguments &...arguments) {
  constexpr size_t kTaken = sizeof...(Parameters) - 1;
  using Place = std::tuple_element_t<kTaken, std::tuple<Parameters...>>;
  ComPtr<std::remove_pointer_t<std::remove_pointer_t<Place>>> operation;
  const std::tuple all(passed(arguments)...);
  const HRESULT status = [&]<size_t... i>(std::index_sequence<i...>) {
    return call(object, member, std::get<i>(all)..., operation.put());
  }(std::make_index_sequence<kTaken>());
  if (status < 0)
    return status;
  waitForPool();
  if constexpr (sizeof...(Arguments) > kTaken)
    return operation->GetResults(std::get<kTaken>(all));
  else
    return operation->GetResults();
}

} // namespace wrt::test

#endif
