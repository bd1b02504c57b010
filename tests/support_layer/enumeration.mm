// Collections of WinRT read as Foundation's.

#include "platform/linux/components/collections/Map.h"
#include "platform/linux/components/collections/Vector.h"
#include "tests/families/Families.h"

#import <WRTObjcBridge/IIterable.h>
#import <WRTObjcBridge/IMap.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTObjcBridge/Windows.UI.Xaml.h>
#import <WRTSupport/WRTSupport.h>
#include <abi/Windows.Storage.abi.h>

namespace wrt::test {

namespace {

using namespace implement;

using Strings = WRTIVector__1_WRTHSTRING_Bridge;
using FileType = types::StorageFile;

Strings *stringsOf(NSArray *elements) {
  Strings *bridge = [Strings bridge:make<Vector<String>>()->identity()];
  [bridge replaceAllWithValues:elements error:nullptr];
  return bridge;
}

// In one block and in several; nothing is left behind, the strings' handles included.
const Cell eachFamily("support.each.all_families.normal", [] {
  NSError *error = staleError();
  for (int count : {0, 1, 63, 64, 65, 200}) {
    SCOPED_TRACE(count);
    NSArray *names = numbered(count);
    Strings *vector = stringsOf(names);
    NSMutableArray *seen = [NSMutableArray array];
    for (NSString *name in WRTEach(vector, &error))
      [seen addObject:name];
    EXPECT_TRUE([seen isEqual:names]);
    EXPECT_EQ(nil, error);
    EXPECT_TRUE([WRTArray([vector getViewWithError:nullptr], &error) isEqual:names]);
    // Of this iterable there is a proxy alone.
    WRTIIterable__1_WRTHSTRING_Bridge *iterable = [WRTIIterable__1_WRTHSTRING_Bridge cast:vector];
    EXPECT_TRUE([WRTArray(iterable, &error) isEqual:names]);
  }

  auto file = make<StandIn<abi::IStorageFile>>();
  const auto files = make<VectorView<FileType>>(
      Items<FileType>{ComPtr<abi::IStorageFile>(file->interface()), nullptr});
  NSArray *bridges =
      WRTArray([WRTIVectorView__1_WRTStorageFile_P_Bridge bridge:files->identity()], &error);
  ASSERT_EQ(2u, [bridges count]);
  EXPECT_EQ([WRTStorageFileBridge class], [[bridges objectAtIndex:0] class]);
  EXPECT_EQ(static_cast<void *>(file->identity()), [[bridges objectAtIndex:0] inner]);
  EXPECT_EQ([NSNull null], [bridges objectAtIndex:1]);

  using Range = types::AutoFocusRange;
  const auto view = make<VectorView<Range>>(Items<Range>{2, -1, 0});
  id ranges = [WRTIVectorView__1_WRTAutoFocusRange_Bridge bridge:view->identity()];
  EXPECT_TRUE([WRTArray(ranges, &error) isEqual:(@[ @2, @-1, @0 ])]);

  const auto map = make<Map<String, Ref<implement::IVector<String>>>>();
  id<WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge> typed =
      [WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge bridge:map->identity()];
  bool replaced = false;
  [typed insertWithKey:@"a" value:stringsOf(@[ @"1", @"2" ]) replaced:&replaced error:nullptr];
  [typed insertWithKey:@"b" value:stringsOf(@[]) replaced:&replaced error:nullptr];
  for (WRTKeyValuePair *pair in WRTEach(typed, &error))
    EXPECT_EQ([[pair key] isEqual:@"a"] ? 2u : 0u, [WRTArray([pair value], &error) count]);
  NSDictionary *dictionary = WRTDictionary([typed getViewWithError:nullptr], &error);
  EXPECT_EQ(2u, [dictionary count]);
  EXPECT_TRUE([WRTArray([dictionary objectForKey:@"a"], &error) isEqual:(@[ @"1", @"2" ])]);

  // A runtime class that is a map of objects; its keys are boxed.
  expectLeftover({.strings = 2});
  WRTResourceDictionaryBridge *resources = [[[WRTResourceDictionaryBridge alloc] init] autorelease];
  [resources insertWithKey:WRTBox(@"one") value:WRTBox(@1) replaced:&replaced error:&error];
  [resources insertWithKey:WRTBox(@"two") value:WRTBox(@2) replaced:&replaced error:&error];
  EXPECT_TRUE([WRTUnbox([WRTDictionary(resources, &error) objectForKey:@"two"]) isEqual:@2]);
  EXPECT_EQ(nil, error);
});

const Cell eachChanging("support.each.changing.raises", [] {
  NSError *error = nil;
  for (bool asIterable : {false, true}) {
    Strings *vector = stringsOf(numbered(100));
    id collection = asIterable ? static_cast<id>([WRTIIterable__1_WRTHSTRING_Bridge cast:vector])
                               : static_cast<id>(vector);
    int seen = 0;
    bool raised = false;
    @try {
      for (NSString *name in WRTEach(collection, &error)) {
        seen += [name length] > 0;
        if (seen == 50)
          [vector appendWithItem:@"more" error:nullptr];
      }
    } @catch (NSException *exception) {
      raised = [[exception name] isEqual:NSGenericException];
    }
    EXPECT_TRUE(raised);
    EXPECT_EQ(64, seen) << "what was read in one block";
  }
});

/// A view that says it has three elements, and delivers as it was told.
class OddView final : public VectorView<FileType> {
public:
  OddView(HRESULT status, uint32_t claimed)
      : VectorViewObject(Items<FileType>(3)), status_(status), claimed_(claimed) {}

  HRESULT WRT_ABI GetMany(uint32_t, uint32_t, abi::IStorageFile **, uint32_t *actual) override {
    *actual = claimed_;
    return status_;
  }

private:
  const HRESULT status_;
  const uint32_t claimed_;
};

const Cell eachHostile("support.each.hostile.refused", [] {
  EXPECT_FAILS(status::kPointer, WRTEach(nil, &failure));
  EXPECT_FAILS(kNoInterface, WRTArray(WRTBox(@1), &failure));
  EXPECT_FAILS(kNoInterface, WRTArray(strangerOf([Strings class]), &failure));
  EXPECT_FAILS(status::kInvalidArgument, WRTDictionary(stringsOf(@[ @"a" ]), &failure));

  const auto read = [](HRESULT status, uint32_t claimed, NSError **error) -> NSArray * {
    auto view = make<OddView>(status, claimed);
    return WRTArray([WRTIVectorView__1_WRTStorageFile_P_Bridge bridge:view->identity()], error);
  };
  EXPECT_FAILS(status::kFail, read(status::kFail, 0, &failure));
  EXPECT_FAILS(status::kUnexpected, read(status::kOk, 0, &failure)) << "would never end";
  EXPECT_EQ(64u, [read(status::kOk, 1'000'000, nullptr) count])
      << "no more than there was room for";
  EXPECT_EQ(3u, [read(status::kNotImplemented, 0, nullptr) count]) << "one by one";
});

} // namespace

} // namespace wrt::test
