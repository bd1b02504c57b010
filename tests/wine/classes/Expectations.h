#ifndef WRT_TESTS_WINE_EXPECTATIONS_H
#define WRT_TESTS_WINE_EXPECTATIONS_H

#include "tests/wine/classes/Answer.h"

#include <map>
#include <string>

namespace wrt::test {

/// The answers of one version of Wine, by `Class.Member`.
using Expectations = std::map<std::string, Answer>;

/// Reads a list: `Class.Member answer` a line, where the answer is `works`, `stub`,
/// `not_implemented` or `no_interface`; `#` begins a comment. Ends the process when it cannot.
void readExpectations(const char *path);
const Expectations &expectations();

} // namespace wrt::test

#endif
