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
  Compiler(std::filesystem::path includeFolder, const std::vector<std::string> &command);

  /// Checks `source`, a path, behind the headers, in one of the languages of `-x`. May be called on
  /// several threads at once.
  Compilation compile(const std::vector<std::string> &headers, const std::string &language,
                      const std::string &options = "",
                      const std::string &source = "/dev/null") const;
  /// Compiles Foundation once and for all, into `file`; gives the option that uses it.
  std::string precompileFoundation(const std::string &language,
                                   const std::filesystem::path &file) const;

  const std::filesystem::path &includeFolder() const { return includeFolder_; }

private:
  std::filesystem::path includeFolder_;
  std::string command_;
};

/// Every header below the folder, relative to it, in order.
std::vector<std::string> headersIn(const std::filesystem::path &includeFolder);

} // namespace wrt::test

#endif
