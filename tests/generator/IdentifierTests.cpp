#include "generator/model/Sha1.h"
#include "generator/read/Guid.h"
#include "tests/generator/Generated.h"

#include <gtest/gtest.h>

namespace bridgegen::test {
namespace {

std::string hex(const std::array<uint8_t, 20> &digest) {
  std::string text;
  for (const uint8_t byte : digest) {
    text += "0123456789abcdef"[byte >> 4];
    text += "0123456789abcdef"[byte & 15];
  }
  return text;
}

TEST(Sha1, GivesTheDigestsOfTheStandard) {
  EXPECT_EQ(hex(sha1("")), "da39a3ee5e6b4b0d3255bfef95601890afd80709");
  EXPECT_EQ(hex(sha1("abc")), "a9993e364706816aba3e25717850c26c9cd0d89d");
  // 56 bytes: the length does not fit into the first block any more.
  EXPECT_EQ(hex(sha1("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq")),
            "84983e441c3bd26ebaae4aa1f95129e5e54670f1");
  EXPECT_EQ(hex(sha1(std::string(1000000, 'a'))), "34aa973cd4c4daa4f61eeb2bdbad27316534016f");
}

TEST(Guid, RefusesWhatIsNone) {
  EXPECT_TRUE(Guid::parse("5a648006-843A-4da9-865b-9d26e5dfad7b"));
  for (const char *text :
       {"", "5a648006-843a-4da9-865b-9d26e5dfad7", "5a648006-843a-4da9-865b-9d26e5dfad7b0",
        "5a648006843a4da9865b9d26e5dfad7b", "5a648006-843a-4da9-865b-9d26e5dfad7g",
        "5a648006-843a-4da9-865b_9d26e5dfad7b"})
    EXPECT_FALSE(Guid::parse(text)) << text;
}

/// The families and types from which the instances below are made, with their identifiers of
/// Windows 10 SDK 10.0.16299.0.
const char *const kFamilies = R"(
namespace Windows.Foundation;
struct DateTime { Int64 UniversalTime; }
interface IReference<T> {61c17706-2d65-11e0-9ae8-d48564015472};
interface IAsyncOperation<TResult> {9fc2b0bb-e446-44e2-aa61-9cab8f636af2}
{
    AsyncOperationCompletedHandler<TResult> Completed { set(handler); get; }
}
delegate AsyncOperationCompletedHandler<TResult> as IAsyncOperationCompletedHandler
    {fcdcf02c-e5d8-4478-915a-4d90b74b83a5} (IAsyncOperation<TResult> asyncInfo, Int32 asyncStatus);
namespace Windows.Foundation.Collections;
interface IVector<T> {913337e9-11a1-4345-a3a2-4e7f956e222d};
interface IVectorView<T> {bbe1fa4c-b0e3-4583-baef-1f1b2e483e56};
interface IIterable<T> {faa585ea-6214-4217-afda-7f46de5869b3};
interface IKeyValuePair<K, V> {02b51929-c1c4-4a7e-8940-0312b5c18500};
interface IMap<K, V> {3c2925fe-8519-45c1-aa79-197b6718c1c1};
namespace Windows.UI;
struct Color { UInt8 A; UInt8 R; UInt8 G; UInt8 B; }
namespace Windows.Storage;
using Windows.Foundation;
using Windows.Foundation.Collections;
using Windows.UI;
extern interface IStorageFile {fa3f6186-4214-428c-a64c-14c9ac7315ea};
extern class StorageFile : IStorageFile;
)";

/// The identifier that the generated header has for the instance.
std::string identifierOf(const std::string &instance, const std::string &bridge) {
  const Generated generated = generateFrom(kFamilies + ("full " + instance + ";"));
  EXPECT_EQ(generated.errors, "");
  const std::string &header = generated.files.at("include/WRTObjcBridge/sample.h");
  const size_t protocol = header.find("@protocol " + bridge + " <");
  const size_t brace = header.rfind('{', protocol);
  return protocol == header.npos ? "no protocol" : header.substr(brace + 1, 36);
}

/// Compared with the values in the SDK's own headers.
TEST(Identifier, OfAnInstanceIsThatOfTheSdk) {
  EXPECT_EQ(identifierOf("IAsyncOperation<String>", "WRTIAsyncOperation__1_WRTHSTRING_Bridge"),
            "3E1FE603-F897-5263-B328-0806426B8A79");
  EXPECT_EQ(identifierOf("IVector<String>", "WRTIVector__1_WRTHSTRING_Bridge"),
            "98B9ACC1-4B56-532E-AC73-03D5291CCA90");
  EXPECT_EQ(identifierOf("IReference<Int32>", "WRTIReference__1_WRTINT32_Bridge"),
            "548CEFBD-BC8A-5FA0-8DF2-957440FC8BF4");
  EXPECT_EQ(identifierOf("IReference<Double>", "WRTIReference__1_WRTDOUBLE_Bridge"),
            "2F2D6C29-5473-5F3E-92E7-96572BB990E2");
  EXPECT_EQ(identifierOf("IMap<String, Object>", "WRTIMap__2_WRTHSTRING_WRTIInspectable_P_Bridge"),
            "1B0D3570-0877-5EC2-8A2C-3B9539506ACA");
}

TEST(Identifier, OfAnInstanceGoesIntoStructuresClassesAndOtherInstances) {
  EXPECT_EQ(identifierOf("IReference<Windows.Foundation.DateTime>",
                         "WRTIReference__1_WRTDateTime_Bridge"),
            "5541D8A7-497C-5AA4-86FC-7713ADBF2A2C");
  EXPECT_EQ(identifierOf("IReference<Color>", "WRTIReference__1_WRTColor_Bridge"),
            "AB8E5D11-B0C1-5A21-95AE-F16BF3A37624");
  EXPECT_EQ(identifierOf("IVectorView<StorageFile>", "WRTIVectorView__1_WRTStorageFile_P_Bridge"),
            "80646519-5E2A-595D-A8CD-2A24B4067F1B");
  EXPECT_EQ(
      identifierOf("IIterable<IKeyValuePair<String, Object>>",
                   "WRTIIterable__1_WRTIKeyValuePair__2_WRTHSTRING_WRTIInspectable_P_P_Bridge"),
      "FE2F3D47-5D47-5499-8374-430C7CDA0204");
}

TEST(Identifier, OfADelegateInstanceIsMadeLikewise) {
  const Generated generated =
      generateFrom(kFamilies + std::string("full IAsyncOperation<StorageFile>;"));
  ASSERT_EQ(generated.errors, "");
  EXPECT_NE(
      generated.files.at("platform/sample.delegates.mm")
          .find(
              "void *WRTIAsyncOperationCompletedHandler__1_WRTStorageFile_PFromBlock(id block) {\n"
              "  return wrt::makeDelegate<HRESULT(void *, int)>({0xE521C894, 0x2C26, 0x5946, "
              "{0x9E, 0x61, 0x2B, 0x5E, 0x18, 0x8D, 0x01, 0xED}}, block);"),
      std::string::npos);
}

} // namespace
} // namespace bridgegen::test
