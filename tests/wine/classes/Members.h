#ifndef WRT_TESTS_WINE_MEMBERS_H
#define WRT_TESTS_WINE_MEMBERS_H

#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace wrt::test {

/// One member of a class: a test under the name `Class.Member`. `body` calls the member with
/// `error`, and when `*error` is nil then, compares what it did with what is known independently.
/// The expected answer stands in the list for the version of Wine; a member that answers otherwise,
/// be it better, fails.
struct Member {
  Member(const std::string &name, std::function<void(NSError **error)> body);
};

/// Reads the list of expectations: `Class.Member answer` a line; `#` begins a comment. An answer is
/// `works`; `stub`, which succeeds and does not do its work: a handler is not kept, an element not
/// found; `not_implemented`, which fails with `E_NOTIMPL`; `no_interface`: the object lacks the
/// member's interface, so that the bridge does not call at all. Ends the process when it cannot.
/// Makes a test of every member that has none, which calls it through the runtime with plain
/// arguments: a type's name for a string, a block, nothing for anything else.
void readExpectations(const char *path);

/// A new instance of a class that such members are of, autoreleased; nil for one that has statics.
id newInstance(const std::string &className);

/// The expected answer of the running member.
const std::string &expectedAnswer();

/// Tells that the running member has WinRT take over so many more handles of ours, whose end the
/// ledger does not see.
void handOver(int strings);

/// How many delegates made of blocks live: the subscriptions that are really kept.
long liveDelegates();

} // namespace wrt::test

#endif
