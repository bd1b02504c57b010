#include "tests/wine/classes/Members.h"

#include "debug/Encoding.h"
#include "platform/linux/ledger/WRTLedger.h"
#include "tests/catalogue/CatalogueTable.h"

#include <WRTStatus.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace wrt::test {

namespace {

/// By `Class.Member`.
std::map<std::string, std::string> expectations;
std::string expected;
int handedOver = 0;

/// What the caller's error variable says of a call before which it held `before`.
std::string describe(NSError *error, NSError *before) {
  if (error == before)
    return "no_interface";
  if (error == nil)
    return "succeeds";
  if ([error code] == status::kNotImplemented)
    return "not_implemented";
  return [[NSString stringWithFormat:@"fails with 0x%08x", (unsigned)[error code]] UTF8String];
}

class MemberTest : public testing::Test {
public:
  MemberTest(std::string name, std::function<void(NSError **)> body)
      : name_(std::move(name)), body_(std::move(body)) {}

  void TestBody() override {
    const auto answer = expectations.find(name_);
    if (answer == expectations.end())
      GTEST_FAIL() << "not in the list of expectations";
    expected = answer->second;
    handedOver = 0;
    const WRTLedgerCounts before = WRTLedgerRead();
    {
      NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
      // The frame stores nil or the failure; only a call that is not made leaves what was there.
      NSError *const stale = [NSError errorWithDomain:@"stale" code:1 userInfo:nil];
      NSError *error = stale;
      body_(&error);
      EXPECT_EQ(expected == "works" || expected == "stub" ? "succeeds" : expected,
                describe(error, stale));
      [pool release];
    }
    // The strings and blocks that the call made, and the handlers, unless they were kept for good.
    const WRTLedgerCounts left = WRTLedgerDifference(before, WRTLedgerRead());
    EXPECT_EQ(handedOver, left.live[kWRTLedgerStringHandles]);
    EXPECT_EQ(0, left.live[kWRTLedgerTaskBlocks]);
    EXPECT_EQ(0, left.live[kWRTLedgerDelegates]);
    EXPECT_EQ(0, left.live[kWRTLedgerObjects]);
  }

private:
  std::string name_;
  std::function<void(NSError **)> body_;
};

/// The names that have a test.
std::set<std::string> &tested() {
  static std::set<std::string> names;
  return names;
}

/// The method that WinRT's name for a member stands for: the shortest one that begins with it.
const catalogue::Method *find(const std::string &className, std::string member) {
  const size_t mark = member.find('_');
  if (mark != std::string::npos)
    member.erase(mark, 1); // add_Stopped
  std::string beginning = member + "With";
  beginning[0] = static_cast<char>(tolower(beginning[0]));
  const catalogue::Method *found = nullptr;
  static const CatalogueTable table = readCatalogue(WRT_CATALOGUE_FILE);
  const auto methods = table.find("WRT" + className + "Bridge");
  if (methods == table.end())
    return nullptr;
  for (const catalogue::Method &each : methods->second) {
    const bool fits =
        each.selector.starts_with(beginning) || each.selector.starts_with("get" + member + "With");
    if (each.slot && fits && (!found || each.selector.size() < found->selector.size()))
      found = &each;
  }
  return found;
}

// Whatever the answer is, nothing is given.
void callPlainly(const std::string &whole, NSError **error) {
  const std::string className = whole.substr(0, whole.find('.'));
  const catalogue::Method *method = find(className, whole.substr(whole.find('.') + 1));
  ASSERT_NE(nullptr, method) << whole << " is no member of the catalogue's";
  id receiver = method->isClassMethod ? static_cast<id>(NSClassFromString([NSString
                                            stringWithUTF8String:method->className.c_str()]))
                                      : newInstance(className);
  ASSERT_NE(nil, receiver);
  SEL selector = NSSelectorFromString([NSString stringWithUTF8String:method->selector.c_str()]);
  // The error follows the last argument; what stands behind it nobody takes.
  const auto types = debug::parseEncoding(method->extendedEncoding);
  void *arguments[6] = {};
  ASSERT_GE(std::size(arguments), types.size() - 3);
  for (size_t i = 3; i + 1 < types.size(); ++i) {
    if (types[i].isString())
      arguments[i - 3] = @"Windows.Gaming.Input.Gamepad";
    else if (types[i].kind == '?')
      arguments[i - 3] = [[^HRESULT(id, id) {
        return 0;
      } copy] autorelease];
  }
  arguments[types.size() - 4] = error;
  using Function = uint64_t (*)(id, SEL, void *, void *, void *, void *, void *, void *);
  const uint64_t result = reinterpret_cast<Function>(reinterpret_cast<void *>([receiver
      methodForSelector:selector]))(receiver, selector, arguments[0], arguments[1], arguments[2],
                                    arguments[3], arguments[4], arguments[5]);
  if (types[0].kind != 'v' && expected != "stub")
    EXPECT_EQ(0u, result & (types[0].kind == 'B' ? 0xFF : types[0].kind == 'i' ? ~0u : ~0ull));
}

} // namespace

Member::Member(const std::string &name, std::function<void(NSError **)> body) {
  tested().insert(name);
  const size_t dot = name.find('.');
  testing::RegisterTest(name.substr(0, dot).c_str(), name.substr(dot + 1).c_str(), nullptr, nullptr,
                        __FILE__, __LINE__, [name, body = std::move(body)]() -> testing::Test * {
                          return new MemberTest(name, body);
                        });
}

void readExpectations(const char *path) {
  static const std::set<std::string> words = {"works", "stub", "not_implemented", "no_interface"};
  for (std::string line : catalogue::readLines(path)) {
    line.erase(std::min(line.find('#'), line.size()));
    std::istringstream parts(line);
    std::string name, word;
    if (!(parts >> name))
      continue;
    parts >> word;
    if (!words.contains(word) || !expectations.emplace(name, word).second) {
      std::fprintf(stderr, "%s: \"%s\" is no answer of %s, or the second one\n", path, word.c_str(),
                   name.c_str());
      std::exit(2);
    }
    if (!tested().contains(name))
      Member(name, [name](NSError **error) { callPlainly(name, error); });
  }
}

const std::string &expectedAnswer() { return expected; }

void handOver(int strings) { handedOver += strings; }

long liveDelegates() { return WRTLedgerRead().live[kWRTLedgerDelegates]; }

} // namespace wrt::test
