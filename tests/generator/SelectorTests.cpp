#include "tests/generator/Generated.h"

#include <gtest/gtest.h>

namespace bridgegen::test {
namespace {

const char *const kTypes = R"(
struct DateTime { Int64 UniversalTime; }
delegate Handler {00000000-0000-0000-0000-00000000000a} ();
)";

/// Selectors and slots of an interface's members, `selector slot`, without the accessor.
std::vector<std::string> selectorsOf(const std::string &members) {
  const Generated generated = generateFrom(
      kTypes + ("full interface IFoo {00000000-0000-0000-0000-000000000001} {" + members + "}"));
  std::vector<std::string> selectors;
  for (const CatalogueLine &line : catalogueOf(generated, "WRTIFooBridge")) {
    if (line.slot != "-")
      selectors.push_back(line.selector + " " + line.slot);
  }
  return selectors;
}

using Selectors = std::vector<std::string>;

TEST(Selector, OfMethodsTakesTheParametersNames) {
  EXPECT_EQ(selectorsOf("void Cancel();"
                        "void FromArgb(UInt8 a, UInt8 r, UInt8 g, UInt8 b);"
                        "void CreateWithHandler(String label, Handler action);"
                        "[overload(\"FindAsync\")] void FindAsyncWithOptions(Int32 pOptions);"),
            (Selectors{"cancelWithError: 6", "fromArgbWithA:r:g:b:error: 7",
                       "createWithHandlerWithLabel:action:error: 8",
                       "findAsyncWithOptionsWithPOptions:error: 9"}));
}

TEST(Selector, OfPropertiesKeepsTheirCase) {
  EXPECT_EQ(selectorsOf("Boolean IsOn { get; set; } Int32 Id { get; }"),
            (Selectors{"getIsOnWithError: 6", "setIsOnWithValue:error: 7", "getIdWithError: 8"}));
}

TEST(Selector, OfAccessorsFollowsTheOrderOfTheDeclaration) {
  EXPECT_EQ(selectorsOf("String A { set; get; } String B { get; } void Run(); String B { set; }"),
            (Selectors{"setAWithValue:error: 6", "getAWithError: 7", "getBWithError: 8",
                       "runWithError: 9", "setBWithValue:error: 10"}));
}

TEST(Selector, OfADelegatePropertyIsASetterAndTheGetterKeepsItsSlot) {
  EXPECT_EQ(
      selectorsOf(
          "Handler Completed { set(handler); get; } Handler Invoked { get; set; } void Run();"),
      (Selectors{"setCompletedWithHandler:error: 6", "setInvokedWithValue:error: 9",
                 "runWithError: 10"}));
}

TEST(Selector, OfEventsNamesTheHandlerAndAlwaysAToken) {
  EXPECT_EQ(
      selectorsOf("event Handler StoreChanged(pHandler); event Handler Closed;"),
      (Selectors{"addStoreChangedWithPHandler:error: 6", "removeStoreChangedWithToken:error: 7",
                 "addClosedWithHandler:error: 8", "removeClosedWithToken:error: 9"}));
}

TEST(Selector, OfArraysHasTheWordsThatCross) {
  EXPECT_EQ(
      selectorsOf("void A(UInt8[] value); void B(String[] value);"
                  "void C(out UInt8[] value); void D(out String[] value);"
                  "void E(fill Boolean[] buttons, fill Double[axisCount] axes);"
                  "void F(UInt32 start, fill String[capacity, return actual] items);"
                  "void G(UInt32 start, fill Int32[capacity, return actual] items);"),
      (Selectors{"aWithValueSize:value:error: 6", "bWithValue:error: 7",
                 "cWithValueSize:value:error: 8", "dWithValue:error: 9",
                 "eWithButtonsSize:buttons:axisCount:axes:error: 10",
                 "fWithStart:capacity:error: 11", "gWithStart:capacity:items:actual:error: 12"}));
}

TEST(Selector, SkipsReservedSlots) {
  EXPECT_EQ(selectorsOf("void A(); reserved; reserved; void B();"),
            (Selectors{"aWithError: 6", "bWithError: 9"}));
}

/// A method's own parameter may have any name; the header's variables may not.
TEST(Selector, KeepsNamesThatAreWordsOfTheLanguage) {
  EXPECT_EQ(selectorsOf("void Get(String id, Int32 default, Int32 error);"),
            (Selectors{"getWithId:default:error:error: 6"}));
}

} // namespace
} // namespace bridgegen::test
