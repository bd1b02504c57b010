#include "tests/generator/Generated.h"

#include <gtest/gtest.h>

namespace bridgegen::test {
namespace {

/// Types of the catalogue in a few lines, for single encodings.
const char *const kTypes = R"(
namespace Windows.Foundation;
struct TimeSpan { Int64 Duration; }
struct Color { UInt8 A; UInt8 R; UInt8 G; UInt8 B; }
struct GridLength { Double Value; Unit GridUnitType; }
struct FontWeight { UInt16 Weight; }
struct TypeName { String Name; Unit Kind; }
struct KeyStatus { UInt32 RepeatCount; Boolean WasKeyDown; Inner Both; }
struct Inner { Single a; Single b; }
enum Unit { Auto = 0 }
flags enum Options { None = 0 }
interface IReference<T> {61c17706-2d65-11e0-9ae8-d48564015472} { T Value { get; } }
interface IAsyncOperation<TResult> {9fc2b0bb-e446-44e2-aa61-9cab8f636af2}
{
    AsyncOperationCompletedHandler<TResult> Completed { set(handler); get; }
    TResult GetResults();
}
delegate AsyncOperationCompletedHandler<TResult> as IAsyncOperationCompletedHandler
    {fcdcf02c-e5d8-4478-915a-4d90b74b83a5} (IAsyncOperation<TResult> asyncInfo, Unit asyncStatus);
interface IMap<K, V> {3c2925fe-8519-45c1-aa79-197b6718c1c1}
{
    V Lookup(K key);
    void Insert(K key, V value, out Boolean replaced);
}
interface IVector<T> {913337e9-11a1-4345-a3a2-4e7f956e222d}
{
    Boolean IndexOf(T value, out UInt32 index);
    void GetMany(UInt32 startIndex, fill T[UInt32 capacity, return UInt32 actual] items);
    void ReplaceAll(T[UInt32 count] values);
}
proxy interface IArgs {00000000-0000-0000-0000-00000000000a};
full interface ISender {00000000-0000-0000-0000-00000000000b} { }
proxy class Args : IArgs;
full class Sender : ISender;
delegate Changed {00000000-0000-0000-0000-00000000000c} (Sender sender, IArgs args, Color color);
full IReference<TimeSpan>, IAsyncOperation<String>, IMap<String, IVector<String>>, IVector<String>, IVector<Unit>;
)";

/// The encodings of the only member, in the class and in the protocol.
std::pair<std::string, std::string> encodingsOf(const std::string &member) {
  const Generated generated = generateFrom(
      kTypes + ("full interface IFoo {00000000-0000-0000-0000-000000000001} {" + member + "}"));
  const std::vector<CatalogueLine> lines = catalogueOf(generated, "WRTIFooBridge");
  return {lines.at(0).encoding, lines.at(0).protocolEncoding};
}

std::string encodingOf(const std::string &member) { return encodingsOf(member).first; }
std::string protocolEncodingOf(const std::string &member) { return encodingsOf(member).second; }

TEST(Encoding, OfNumbersGivesSmallOnesAWord) {
  EXPECT_EQ(encodingOf("Color FromArgb(UInt8 a, UInt8 r, UInt8 g, UInt8 b);"),
            "{WRTColor=CCCC}28@0:4C8C12C16C20^@24");
  EXPECT_EQ(encodingOf("void Run(Boolean b, Int16 s, UInt16 u, Char16 c, Single f, Double d);"),
            "v40@0:4B8s12S16S20f24d28^@36");
  EXPECT_EQ(encodingOf("void Set(Object dp, Int64 token);"), "v24@0:4@8q12^@20");
  EXPECT_EQ(encodingOf("HResult ErrorCode { get; }"), "l12@0:4^@8");
  EXPECT_EQ(encodingOf("UInt64 Ticks { get; }"), "Q12@0:4^@8");
}

TEST(Encoding, OfEnumerationsIsThatOfAnInt) {
  EXPECT_EQ(encodingOf("Boolean TryGet(out Unit value);"), "B16@0:4^i8^@12");
  EXPECT_EQ(encodingOf("void Set(Options options);"), "v16@0:4i8^@12");
}

TEST(Encoding, OfStructuresHasTheirFieldsAndSizes) {
  EXPECT_EQ(encodingOf("GridLength Auto { get; }"), "{WRTGridLength=di}12@0:4^@8");
  EXPECT_EQ(encodingOf("void Set(GridLength a, Int32 b);"), "v32@0:4{WRTGridLength=di}8i24^@28");
  EXPECT_EQ(encodingOf("void Set(TypeName a, Guid b);"),
            "v36@0:4{WRTTypeName=^vi}8{?=LSS[8C]}16^@32");
  EXPECT_EQ(encodingOf("KeyStatus Get(FontWeight weight);"),
            "{WRTKeyStatus=IB{WRTInner=ff}}14@0:4{WRTFontWeight=S}8^@10");
}

TEST(Encoding, OfPointersLosesFieldsBehindTheSecond) {
  EXPECT_EQ(encodingOf("void Get(out Color[] value);"), "v20@0:4^I8^^{WRTColor}12^@16");
  EXPECT_EQ(encodingOf("void Get(out Guid[] value);"), "v20@0:4^I8^^{?}12^@16");
  EXPECT_EQ(encodingOf("void Set(Guid[] value);"), "v20@0:4I8^{?=LSS[8C]}12^@16");
  EXPECT_EQ(encodingOf("void Get(out UInt8[] value);"), "v20@0:4^I8^*12^@16");
  EXPECT_EQ(encodingOf("void Set(UInt8[] value);"), "v20@0:4I8*12^@16");
  EXPECT_EQ(encodingOf("UInt64 Read(fill Boolean[] b, fill Unit[] s, fill Double[] a);"),
            "Q36@0:4I8^B12I16^i20I24^d28^@32");
}

TEST(Encoding, OfEventsHasATokenWithoutAName) {
  EXPECT_EQ(encodingOf("event Changed Changed;"), "{?=q}16@0:4@?8^@12");
  const Generated generated =
      generateFrom(kTypes + std::string("full interface IFoo {00000000-0000-0000-0000-000000000001}"
                                        " { event Changed Changed; }"));
  EXPECT_EQ(methodOf(generated, "WRTIFooBridge", "removeChangedWithToken:error:").encoding,
            "v20@0:4{?=q}8^@16");
}

TEST(ProtocolEncoding, NamesClassesAndProtocols) {
  EXPECT_EQ(protocolEncodingOf("IReference<TimeSpan> Reminder { get; }"),
            "@\"<WRTIReference__1_WRTTimeSpan_Bridge>\"12@0:4^@8");
  EXPECT_EQ(protocolEncodingOf("void Set(IReference<TimeSpan> value);"),
            "v16@0:4@\"<WRTIReference__1_WRTTimeSpan_Bridge>\"8^@12");
  EXPECT_EQ(protocolEncodingOf("Object Make(String name, Sender sender, out Args args);"),
            "@\"<WRTIInspectableBridge>\"24@0:4@\"NSString\"8@\"WRTSenderBridge\"12^@16^@20");
}

TEST(ProtocolEncoding, HasTheBlocksArguments) {
  EXPECT_EQ(protocolEncodingOf("event Changed Changed;"),
            "{?=q}16@0:4@?<l@?@\"WRTSenderBridge\"@\"<WRTIArgsBridge>\"{WRTColor=CCCC}>8^@12");
}

struct InstanceMethod {
  const char *bridge, *selector, *protocolEncoding;
};

TEST(ProtocolEncoding, OfInstancesHasTheirArguments) {
  const Generated generated = generateFrom(kTypes);
  const InstanceMethod expected[] = {
      {"WRTIAsyncOperation__1_WRTHSTRING_Bridge", "setCompletedWithHandler:error:",
       "v16@0:4@?<l@?@\"<WRTIAsyncOperation__1_WRTHSTRING_Bridge>\"i>8^@12"},
      {"WRTIAsyncOperation__1_WRTHSTRING_Bridge", "getResultsWithError:", "@\"NSString\"12@0:4^@8"},
      {"WRTIAsyncOperation__1_WRTHSTRING_Bridge", "_WRTIAsyncOperation__1_WRTHSTRINGWithError:",
       "^{WRTIAsyncOperation__1_WRTHSTRING=^{WRTIAsyncOperation__1_WRTHSTRINGVtbl}}12@0:4^@8"},
      {"WRTIReference__1_WRTTimeSpan_Bridge", "getValueWithError:", "{WRTTimeSpan=q}12@0:4^@8"},
      {"WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge",
       "lookupWithKey:error:", "@\"<WRTIVector__1_WRTHSTRING_Bridge>\"16@0:4@\"NSString\"8^@12"},
      {"WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge",
       "insertWithKey:value:replaced:error:",
       "v24@0:4@\"NSString\"8@\"<WRTIVector__1_WRTHSTRING_Bridge>\"12^B16^@20"},
      {"WRTIVector__1_WRTHSTRING_Bridge",
       "indexOfWithValue:index:error:", "B20@0:4@\"NSString\"8^I12^@16"},
      {"WRTIVector__1_WRTHSTRING_Bridge",
       "getManyWithStartIndex:capacity:error:", "@\"NSArray\"20@0:4I8I12^@16"},
      {"WRTIVector__1_WRTUnit_Bridge",
       "getManyWithStartIndex:capacity:items:actual:error:", "v28@0:4I8I12^i16^I20^@24"},
      {"WRTIVector__1_WRTHSTRING_Bridge",
       "replaceAllWithValues:error:", "v16@0:4@\"NSArray\"8^@12"},
      {"WRTIArgsBridge", "_WRTIArgsWithError:", "^{WRTIArgs=}12@0:4^@8"},
      {"WRTArgsBridge", "_WRTIArgsWithError:", "^{WRTIArgs=}12@0:4^@8"},
  };
  for (const InstanceMethod &method : expected)
    EXPECT_EQ(methodOf(generated, method.bridge, method.selector).protocolEncoding,
              method.protocolEncoding)
        << method.bridge << " " << method.selector;
}

} // namespace
} // namespace bridgegen::test
