#ifndef WRT_TESTS_HEADERS_COMPILER_H
#define WRT_TESTS_HEADERS_COMPILER_H

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace wrt::test {

/// What became of one compilation.
struct Compilation {
  bool succeeded = false;
  std::string messages; ///< of a failure
  /// The library's headers that were read, relative to the include folder.
  std::set<std::string> headers;
};

/// The compiler under the flags of an application.
class Compiler {
public:
  /// `includeFolder` is the one that holds `WRTObjcBridge/`; `command` the compiler and its flags,
  /// `-Werror` among them.
  Compiler(std::filesystem::path includeFolder, std::vector<std::string> command);

  /// Checks a source of `header` and nothing else, in one of the languages of `-x`. May
  /// be called on several threads at once.
  Compilation compileAlone(const std::string &header, const std::string &language) const;

  const std::filesystem::path &includeFolder() const { return includeFolder_; }

private:
  std::filesystem::path includeFolder_;
  std::string command_;
};

/// Every header below the folder, relative to it, in order.
std::vector<std::string> headersIn(const std::filesystem::path &includeFolder);

} // namespace wrt::test

#endif
