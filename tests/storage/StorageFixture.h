#ifndef WRT_TESTS_STORAGE_FIXTURE_H
#define WRT_TESTS_STORAGE_FIXTURE_H

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/async/ThreadPool.h"
#include "platform/linux/implement/StringHolder.h"
#include "tests/support/Cell.h"

#include <filesystem>
#include <string>

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

/// Calls `start(&operation)`, waits for the operation's end and answers with its outcome, or with
/// the failure to start it.
template <class Operation, class Start>
HRESULT outcome(Start start) {
  Operation *operation = nullptr;
  if (const HRESULT status = start(&operation); status < 0)
    return status;
  const auto owned = ComPtr<Operation>::adopt(operation);
  waitForPool();
  return owned->GetResults();
}
/// The same for an operation with a result, which is put into `*result` (+1 for objects).
template <class Operation, class Result, class Start>
HRESULT outcome(Start start, Result *result) {
  Operation *operation = nullptr;
  if (const HRESULT status = start(&operation); status < 0)
    return status;
  const auto owned = ComPtr<Operation>::adopt(operation);
  waitForPool();
  return owned->GetResults(result);
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
