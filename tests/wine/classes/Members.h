#ifndef WRT_TESTS_WINE_MEMBERS_H
#define WRT_TESTS_WINE_MEMBERS_H

#include "tests/wine/classes/Answer.h"

#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include <string>

namespace wrt::test {

/// One member of a class: a test under the name `Class.Member`. `body` calls the member with
/// `error`, and when `*error` is nil then, compares what it did with what is known independently.
/// The expected answer stands in the list for the version of Wine; a member that answers otherwise,
/// be it better, fails.
struct Member {
  Member(const char *name, void (*body)(NSError **error));
};

/// Makes a test of every other member in the list of expectations, which calls it through the
/// runtime with plain arguments: a type's name for a string, a block, nothing for anything else.
void addPlainMembers();

/// A new instance of a class that such members are of, autoreleased; nil for one that has statics.
id newInstance(const std::string &className);

/// The expected answer of the running member.
Answer expectedAnswer();

/// Tells that the running member has WinRT take over so many more handles of ours, whose end the
/// ledger does not see.
void handOver(int strings);

/// How many delegates made of blocks live: the subscriptions that are really kept.
long liveDelegates();

} // namespace wrt::test

#endif
