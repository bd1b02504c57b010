#include "tests/storage/StorageFixture.h"

#include "platform/linux/components/foundation/Text.h"

#include <fstream>
#include <iterator>
#include <unistd.h>

namespace wrt::test {

void settleAfterwards() {
  static int anything;
  keepUntilDrained(std::shared_ptr<void>(&anything, [](void *) { waitForPool(); }));
}

TemporaryFolder::TemporaryFolder() {
  settleAfterwards();
  std::string name = std::filesystem::temp_directory_path() / "wrt storage XXXXXX";
  path_ = mkdtemp(name.data());
  // For the cells that look at it without privileges.
  using enum std::filesystem::perms;
  std::filesystem::permissions(path_,
                               owner_all | group_read | group_exec | others_read | others_exec);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

std::filesystem::path TemporaryFolder::add(const std::string &name,
                                           const std::string &content) const {
  std::filesystem::create_directories((path_ / name).parent_path());
  std::ofstream(path_ / name, std::ios::binary) << content;
  return path_ / name;
}

std::string contentOf(const std::filesystem::path &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

StringHolder text(const std::string &utf8) { return StringHolder(components::toUtf16(utf8)); }
std::string utf8(const StringHolder &text) { return components::toUtf8(text.view()); }

} // namespace wrt::test
