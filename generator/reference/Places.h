#ifndef WRT_GENERATOR_REFERENCE_PLACES_H
#define WRT_GENERATOR_REFERENCE_PLACES_H

#include "generator/emit/Emit.h"

#include <map>

namespace bridgegen {

/// Where things stand in the reference. Addresses begin with a slash at the site's root.
class Places {
public:
  Places(const Model &model, const std::vector<HandWrittenClass> &handWritten);

  /// Whether the type has a page.
  static bool hasPage(const Type &type);
  /// `Windows.UI.Popups`; the unit's name for a type of the global namespace.
  static std::string nameSpace(const Type &type);
  /// What the page is called: `MessageDialog`, `IVector__1_HSTRING`.
  static std::string pageName(const Type &type);
  /// `/api/Windows.UI.Popups/MessageDialog.html`.
  static std::string address(const Type &type);
  /// Of a method in the page of its protocol.
  static std::string address(const InterfaceType &protocol, const std::string &selector);
  static std::string addressOfHandWritten(const std::string &className);

  /// C and Objective-C as HTML, with links to what has a page.
  std::string code(const std::string &text) const;
  /// The head of a method in the same way, with `b` around the parts of the selector and `var`
  /// around the names of the arguments.
  std::string methodHead(const std::string &head) const;
  /// A sentence; what stands between backticks is code.
  std::string prose(const std::string &text) const;
  /// WinRT's name of the type, with a link if it has a page.
  static std::string link(const Type &type);

private:
  std::string word(const std::string &word) const;

  std::map<std::string, std::string, std::less<>> addresses_; ///< of C and Objective-C names
};

/// The text as HTML has it.
std::string escaped(std::string_view text);

} // namespace bridgegen

#endif
