#include "tests/generator/Generated.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <regex>

namespace bridgegen::test {
namespace {

/// Declarations in which `^` stands before the offending token and `{1}` for the identifier that
/// ends so, and what is said about it.
struct Refusal {
  std::string declarations;
  std::string message;
};

void PrintTo(const Refusal &refusal, std::ostream *out) { *out << refusal.message; }

/// What every case may use.
const std::string kPrelude = "proxy interface IThing {a};\n"
                             "proxy class Thing : IThing;\n"
                             "delegate Handler {b} (Int32 x);\n"
                             "interface IList<T> {c}"
                             " { T First(); IList<T> Rest(); }\n";

std::string members(const std::string &members) {
  return "full interface IFoo {1}\n{\n" + members + "\n}\n";
}

/// With the identifiers in full.
std::string full(const std::string &declarations) {
  static const std::regex kShort("\\{([0-9a-f])\\}");
  return std::regex_replace(declarations, kShort, "{00000000-0000-0000-0000-00000000000$1}");
}

std::string repeated(std::string_view text, size_t count) {
  std::string all;
  for (; count != 0; --count)
    all += text;
  return all;
}

const std::vector<Refusal> kRefusals{
    // The grammar.
    {"^interfaces IFoo;",
     "expected a declaration ('enum', 'flags', 'struct', 'delegate', 'interface', 'full', 'proxy', "
     "'extern', 'statics', 'factory' or 'namespace'), found 'interfaces'"},
    {"struct S { Int32 ^$a; }", "unexpected character '$'"},
    {"struct S { }\n  ^/* ...", "'/*' without '*/'"},
    {"namespace Windows.Foo\n^struct S { }", "expected ';', found 'struct'"},
    {"struct S { Int32 a;^", "expected a field's type or '}', found end of file"},
    {"proxy interface IFoo ^{0000-00};",
     "expected a GUID of 8-4-4-4-12 hexadecimal digits, found '{0000-00}'"},
    {"proxy interface IFoo ^{00000000-0000-0000-0000-0000000000010};",
     "expected a GUID of 8-4-4-4-12 hexadecimal digits, found "
     "'{00000000-0000-0000-0000-0000000000010}'"},
    {"full interface IFoo ^{ }", "expected a GUID in braces, found '{'"},
    {"proxy interface IFoo {1} ^{ void Run(); }",
     "expected ';' (the members of a proxy or extern interface are not declared), found '{'"},
    {"full interface IFoo^<T> {1} { }",
     "expected no type parameters after 'full', 'proxy', 'extern', 'statics' or 'factory'; its "
     "instantiations say that"},
    {"interface IFoo ^{1} { }",
     "expected '<' (an interface without type parameters is 'full', 'proxy', 'extern', 'statics' "
     "or 'factory'), found '00000000-0000-0000-0000-000000000001'"},
    {"enum E { A = ^0xG }", "expected a decimal or hexadecimal number, found '0xG'"},
    {"enum E { A = ^2147483648 }", "expected a number of 32 bits, found '2147483648'"},
    {"flags enum E { A = ^-1 }", "expected a number of 32 bits, found '1'"},
    {members("Int32 Count { ^read; }"), "expected 'get' or 'set', found 'read'"},
    {members("void Count ^{ get; }"), "expected '(', found '{'"},
    {members("void Run(fill Int32 ^x);"),
     "expected '[' (only arrays are filled or returned through a parameter), found 'x'"},
    {"struct S { " + repeated("A<", 32) + "A^<" + repeated("A<", 100000),
     "type arguments are nested deeper than 32 times"},
    {"[^sealed] full class Foo;", "expected 'activatable' here, found 'sealed'"},
    {"[^activatable] proxy class Foo : IThing;", "expected no attribute here, found 'activatable'"},
    {members("[^overloaded(\"Run\")] void Run();"),
     "expected 'overload(\"...\")', found 'overloaded'"},
    // Names.
    {"struct S { }\nenum ^S { }", "type 'S' is declared twice"},
    {"struct ^Object { }", "'Object' is a built-in type"},
    {"enum E { A = 1, ^A = 2 }", "constant 'A' occurs twice"},
    {"struct S { Int32 x; Int64 ^x; }", "field 'x' occurs twice"},
    {members("void Run(Int32 x, Int32 ^x);"), "parameter 'x' occurs twice"},
    {members("void Run();\nvoid ^Run(Int32 x);"), "member 'Run' occurs twice"},
    {members("Int32 A { get; set; }\nInt32 ^A { set; }"), "member 'A' occurs twice"},
    {"proxy interface IFoo ^{a};",
     "identifier '{00000000-0000-0000-0000-00000000000a}' is already that of 'IThing'"},
    {"namespace Other;\nstruct ^IThing { }", "bridge name 'IThing' is already that of 'IThing'"},
    {"full IList<String>;\nproxy ^IList<String>;", "'IList<String>' is listed twice"},
    {members("void Run(^Nothing x);"), "unknown type 'Nothing'"},
    {"interface IOther<T> {1} { ^Nothing First(); }\nfull IOther<String>, IOther<Int32>;", // said
                                                                                           // once,
                                                                                           // though
                                                                                           // read
                                                                                           // for
                                                                                           // each
                                                                                           // instance
     "unknown type 'Nothing'"},
    {"namespace A;\nenum Panel { }\nnamespace B;\nproxy class Panel as UIPanel : "
     "IThing;\nnamespace C;\nusing A;\nusing B;\nstruct S { ^Panel p; }",
     "'Panel' may be 'A.Panel' and 'B.Panel'; write it in full"},
    {"namespace A;\nenum Panel { }\nenum Other { }\nnamespace B;\nproxy class Panel as UIPanel : "
     "IThing;\nnamespace C;\nusing A;\nenum Other { }\nstruct S { Panel a; Other b; }\n" // its own
                                                                                         // Other
     "namespace D;\nstruct T { A.Panel a; ^Panel b; }", // the using of C has ended
     "unknown type 'Panel'; write 'A.Panel' or 'B.Panel', or name its namespace in a 'using' line"},
    {"namespace A;\nusing ^B;\nstruct S { }", "no type is declared in the namespace 'B'"},
    {"namespace A;\nstruct S { }\n^using A;",
     "a 'using' line stands behind its 'namespace' line, before the declarations"},
    {"full ^IList<String, String>;", "'IList' takes 1 type arguments, found 2"},
    {members("void Run(^String<Int32> x);"), "'String' takes no type arguments"},
    {"full ^Thing;", "expected an instance of a generic interface, found 'Thing'"},
    {"full ^IList<UInt8>;", "'UInt8' cannot be a type argument: it has no spelling"},
    // What can cross.
    {members("^IList<String> Items();"),
     "'IList<String>' has no bridge: it is listed neither as 'full' nor as 'proxy'"},
    {"struct S { }\nfull IList<String>, ^IList<IList<S>>;",
     "'IList<IList<S>>', member 'First': 'IList<S>' has no bridge: it is listed neither as 'full' "
     "nor as 'proxy'"},
    {"extern interface IBar {2};\n" + members("void Run(^IBar x);"),
     "'IBar' has no bridge: it is 'extern'"},
    {"extern class Bar : IThing;\n" + members("^Bar Run();"),
     "'Bar' has no bridge: it is 'extern'"},
    {"statics interface IBar {2} { }\n" + members("void Run(^IBar x);"),
     "'IBar' has no bridge: its members are those of a class"},
    {"full class Bar;\n" + members("^Bar Run();"),
     "'Bar' has no default interface, so there are no objects of it"},
    {"full class Bar;\nproxy ^IList<IList<Bar>>;",
     "'Bar' has no default interface, so it cannot be a type argument"},
    {members("^Handler Run();"), "a delegate cannot be a result"},
    {members("void Run(out ^Handler x);"), "a delegate can only be an in-parameter"},
    {"delegate Other {1} (^Handler x);", "a delegate cannot take another one"},
    {"delegate Int32 ^Other {1} ();",
     "a delegate can return a string, an interface or a class, not 'Int32'"},
    {"delegate Object ^Other {2} ();\n" + members("void Run(Other x);"),
     "a delegate can return a string, an interface or a class, not 'Object'"},
    {"delegate Other<T> {1} (^Other<IList<T>> x);", "a delegate cannot take another one"},
    {"delegate Other<T> {1} (Other<^Other<T>> x);", "a delegate cannot take another one"},
    {"delegate String Other {1} (^Int32 x);",
     "a delegate that returns something cannot take anything"},
    {members("event ^Int32 Changed;"), "expected a delegate as the handler's type, found 'Int32'"},
    {"extern class Bar : IThing;\ndelegate Typed<T> {3} (T sender);\n" +
         members("event ^Typed<Bar> Changed;"),
     "'Typed<Bar>': 'Bar' has no bridge: it is 'extern'"},
    {members("void Run(fill ^String[size] x);"),
     "a 'fill' array of 'String' needs a count of what was filled in"},
    {members("void Run(out Int32[size, out ^count] x);"), "only a 'fill' array has a second count"},
    {members("void Run(Int32[^Int64 count] x);"),
     "expected 'UInt32' or 'Int32' as the type of a count, found 'Int64'"},
    {members("void Run(return Int32[count] ^x, Int32 y);"),
     "a parameter with 'return' must be the last one"},
    {members("^Int32 Run(return Int32[count] x);"),
     "expected 'void', since a parameter has 'return', found 'Int32'"},
    {"struct S { ^IThing x; }", "'IThing' cannot be the type of a field"},
    // Classes.
    {"full class Foo : ^IThing;", "a full class cannot have the proxy interface 'IThing'"},
    {"proxy class Foo : ^Handler;", "expected an interface, found 'Handler'"},
    {"proxy class Foo : IThing, ^IThing;", "'IThing' occurs twice"},
    {"statics interface IBar {2} { }\nfull class Foo factory ^IBar;",
     "'IBar' is no 'factory interface'"},
    {"statics interface IBar {2} { }\nfull class Foo : ^IBar;", "'IBar' belongs behind 'statics'"},
    {"statics interface IBar {2} { }\nproxy class Foo : IThing statics ^IBar;",
     "a proxy class has no statics or factories, found 'IBar'"},
    {"proxy class ^Foo;", "a proxy class needs a default interface"},
    {"proxy interface IOther {1};\nextern class ^Foo : IThing, IOther;",
     "an extern class lists its default interface and nothing else"},
    {members("void Run();") +
         "full interface IBar {2} { void Run(); }\nfull class Foo : IFoo, ^IBar;",
     "selector 'runWithError:' of 'IBar' is already that of a member of 'IFoo'"},
    {members("Int32 Id { get; }\nInt32 ^GetId();"),
     "selector 'getIdWithError:' is already that of member 'Id'"},
    {"proxy IList<Foo>;\nproxy class Foo : ^IList<Foo>;",
     "'Foo' comes back to itself through its default interface"},
};

class Refused : public testing::TestWithParam<Refusal> {};

TEST_P(Refused, NamesPlaceAndReason) {
  std::string text = full(kPrelude + GetParam().declarations);
  std::vector<std::string> places;
  for (size_t at = text.find('^'); at != text.npos; at = text.find('^')) {
    text.erase(at, 1);
    const size_t lineStart = text.rfind('\n', at) + 1;
    places.push_back(
        "sample.idl:" +
        std::to_string(1 + std::count(text.begin(), text.begin() + static_cast<long>(at), '\n')) +
        ":" + std::to_string(at - lineStart + 1) + ": error: ");
  }
  ASSERT_EQ(places.size(), 1U) << "one '^' marks the token";
  const Generated generated = generateFrom({{"sample.idl", text}});
  EXPECT_EQ(generated.errors, places[0] + GetParam().message + "\n");
  EXPECT_TRUE(generated.files.empty());
}

INSTANTIATE_TEST_SUITE_P(Declarations, Refused, testing::ValuesIn(kRefusals));

/// What the product of an add-on has.
const std::string kProduct = "namespace Lib;\n"
                             "interface IList<T> {c} { T First(); }\n"
                             "full interface IThing {a} { void Run(); }\n"
                             "proxy interface IStore {b};\n"
                             "extern interface IFound {d};\n"
                             "extern class Found : IFound;\n"
                             "full class Thing : IThing;\n"
                             "full IList<Thing>;\n";

TEST(Refusals, OfAddOnsTellWhatTheProductHas) {
  struct {
    const char *declarations;
    const char *error;
  } const cases[] = {
      {"namespace Lib; full class Thing : IThing;", "27: error: type 'Thing' is declared twice"},
      {"namespace Lib; proxy interface IStore {b};", "32: error: type 'IStore' is declared twice"},
      {"namespace Lib; full interface IStore {e} { }",
       "38: error: 'Lib.IStore' has the identifier '{00000000-0000-0000-0000-00000000000b}' in the "
       "product"},
      {"namespace Lib; full class Found : IThing;",
       "35: error: 'Lib.Found' has the default interface 'Lib.IFound' in the product"},
      {"namespace A; full interface IA {a} { }",
       "32: error: identifier '{00000000-0000-0000-0000-00000000000a}' is already that of "
       "'IThing'"},
      {"using Lib; full IList<IFound>;", "17: error: 'Lib.IList<Lib.IFound>', member 'First': "
                                         "'Lib.IFound' has no bridge: it is 'extern'"},
      {"namespace A; using Lib; enum Thing { } full IList<Thing>, IList<Lib.Thing>;", nullptr},
      {"namespace A; enum Thing { } enum Other as Thing { }",
       "34: error: bridge name 'Thing' is already that of 'A.Thing'"},
  };
  for (const auto &each : cases) {
    const Generated generated =
        generateFrom({{"sample.idl", full(each.declarations)}}, full(kProduct));
    EXPECT_EQ(generated.errors, each.error ? "sample.idl:1:" + std::string(each.error) + "\n" : "");
    EXPECT_EQ(generated.files.empty(), each.error != nullptr);
  }
}

TEST(Refusals, AreAllShownInTheOrderOfTheirPlaces) {
  const Generated generated = generateFrom(
      {{"b.idl", "struct S { A a; }\nstruct T { B b; T2 c; }"}, {"a.idl", "struct U { C c; }"}});
  EXPECT_EQ(generated.errors, "a.idl:1:12: error: unknown type 'C'\n"
                              "b.idl:1:12: error: unknown type 'A'\n"
                              "b.idl:2:12: error: unknown type 'B'\n"
                              "b.idl:2:17: error: unknown type 'T2'\n");
}

TEST(Refusals, OfStructuresThatContainEachOtherNameBoth) {
  EXPECT_EQ(generateFrom({{"sample.idl", "struct A { B b; }\nstruct B { A a; }"}}).errors,
            "sample.idl:1:8: error: 'A' contains itself\n"
            "sample.idl:2:8: error: 'B' contains itself\n");
}

/// Each is looked at once; its fields are 2^40.
TEST(Refusals, DoNotComeFromDoublingStructures) {
  std::string text = "struct S0 { Int32 a; Int32 b; }\n";
  for (int i = 1; i < 40; ++i) {
    const std::string inner = "S" + std::to_string(i - 1);
    text += "struct S" + std::to_string(i) + " { " + inner + " a; " + inner + " b; }\n";
  }
  EXPECT_EQ(generateFrom({{"sample.idl", text}}).errors, "");
}

TEST(Refusals, OfUnitsNameTheFirstLine) {
  EXPECT_EQ(generateFrom({{"x/a.idl", ""}, {"y/a.idl", ""}}).errors,
            "y/a.idl:1:1: error: unit 'a' is also x/a.idl\n");
  EXPECT_EQ(generateFrom({{"WRTTypes.idl", ""}}).errors,
            "WRTTypes.idl:1:1: error: unit 'WRTTypes' cannot begin with 'WRT', as the hand-written "
            "headers do\n");
}

} // namespace
} // namespace bridgegen::test
