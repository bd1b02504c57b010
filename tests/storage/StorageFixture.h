#ifndef WRT_TESTS_STORAGE_FIXTURE_H
#define WRT_TESTS_STORAGE_FIXTURE_H

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/async/ThreadPool.h"
#include "platform/linux/implement/StringHolder.h"
#include "tests/support/Cell.h"

#include <filesystem>
#include <string>
#include <tuple>
#include <utility>

namespace wrt::test {

using namespace implement;

/// Lets the pool's threads drop what they hold before the running cell's ledger is compared.
void settleAfterwards();

/// A new folder that goes away with everything in it.
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

/// A new default instance of a class.
template <class Interface>
ComPtr<Interface> activate(std::u16string_view className) {
  ComPtr<abi::IInspectable> object;
  activation::findFactory(className)->ActivateInstance(object.put());
  return object.as<Interface>();
}

/// Calls `object`'s member with the first of `arguments`, waits for the end of the operation that
/// it answers and gives its outcome, or the failure to start it. A last argument that the member
/// does not take is the place of the operation's result (+1 for objects).
template <class Object, class Interface, class... Parameters, class... Arguments>
HRESULT outcome(const ComPtr<Object> &object, HRESULT (WRT_ABI Interface::*member)(Parameters...),
                Arguments... arguments) {
  constexpr size_t kTaken = sizeof...(Parameters) - 1;
  using Place = std::tuple_element_t<kTaken, std::tuple<Parameters...>>;
  std::remove_pointer_t<Place> operation = nullptr;
  const std::tuple all(arguments...);
  const auto typed = object.template as<Interface>();
  const HRESULT status = [&]<size_t... i>(std::index_sequence<i...>) {
    return (typed.get()->*member)(std::get<i>(all)..., &operation);
  }(std::make_index_sequence<kTaken>());
  if (status < 0)
    return status;
  const auto owned = ComPtr<std::remove_pointer_t<decltype(operation)>>::adopt(operation);
  waitForPool();
  if constexpr (sizeof...(Arguments) > kTaken)
    return owned->GetResults(std::get<kTaken>(all));
  else
    return owned->GetResults();
}

/// While it lives the process has no more rights than others have; does nothing for processes that
/// had no more before.
class NoPrivileges {
public:
  NoPrivileges();
  ~NoPrivileges();
};

} // namespace wrt::test

#endif
