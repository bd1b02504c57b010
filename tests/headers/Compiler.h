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

/// Whether Foundation has been read before, once for all, or is the header's own affair.
enum class Foundation { Precompiled, Own };

/// The compiler under the flags of an application.
class Compiler {
public:
  /// `includeFolder` is the one that holds `WRTObjcBridge/`; `command` the compiler and its flags,
  /// `-Werror` among them.
  /// Throws if Foundation cannot be precompiled.
  Compiler(std::filesystem::path includeFolder, const std::vector<std::string> &command);
  ~Compiler();
  Compiler(const Compiler &) = delete;
  Compiler &operator=(const Compiler &) = delete;

  /// Checks a source of `header` and nothing else, in one of the languages of `-x`. May
  /// be called on several threads at once.
  Compilation compileAlone(const std::string &header, const std::string &language,
                           Foundation foundation) const;

  const std::filesystem::path &includeFolder() const { return includeFolder_; }

private:
  std::string precompiled(const std::string &language) const;

  std::filesystem::path includeFolder_;
  std::filesystem::path folder_; ///< of what is precompiled; gone with this object
  std::string command_;
};

/// Every header below the folder, relative to it, in order.
std::vector<std::string> headersIn(const std::filesystem::path &includeFolder);

} // namespace wrt::test

#endif
