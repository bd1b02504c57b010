// Foundation's collections handed in: seen through the bridges, which call every slot.

#include "platform/linux/components/generic/Types.h"
#include "tests/families/Families.h"

#import <WRTObjcBridge/IIterator.h>
#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTSupport/WRTSupport.h>
#include <abi/Windows.Storage.abi.h>

namespace wrt::test {

namespace {

using namespace implement;

using Strings = id<WRTIVector__1_WRTHSTRING_Bridge>;

std::string joinedStrings(id collection) {
  return [[WRTArray(collection, nullptr) componentsJoinedByString:@" "] UTF8String];
}

const Cell vectorHandedIn("support.collections.vector.normal", [] {
  expectLeftover({.strings = 3, .extraHandles = 5}); // strings that are read are not released
  NSError *error = staleError();
  Strings vector = WRTVectorOf((@[ @"a", @"", @"ü𝄞" ]), WRTIVector__1_WRTHSTRING_Bridge, &error);
  EXPECT_EQ(nil, error);
  EXPECT_EQ("a  ü𝄞", joinedStrings(vector));
  EXPECT_TRUE(askFor<abi::IAgileObject>(vector));
  EXPECT_FALSE(askFor<implement::IVectorView<String>>(vector));
  checkStrings(WRTVectorOf(@[], WRTIVector__1_WRTHSTRING_Bridge, &error));

  // Objects, as their elements' interface; and an iterable of which WinRT asks a view.
  auto folder = make<StandIn<abi::IStorageItem>>();
  NSArray *items = @[ [WRTIStorageItemBridge bridge:folder->identity()], [NSNull null] ];
  id<WRTIIterable__1_WRTIStorageItem_P_Bridge> iterable =
      WRTVectorOf(items, WRTIIterable__1_WRTIStorageItem_P_Bridge, &error);
  NSArray *back = WRTArray(iterable, &error);
  EXPECT_EQ(static_cast<void *>(folder->interface()), [[back objectAtIndex:0] inner]);
  EXPECT_EQ([NSNull null], [back objectAtIndex:1]);
  EXPECT_TRUE(askFor<implement::IVectorView<Ref<abi::IStorageItem>>>(iterable));
});

const Cell mapHandedIn("support.collections.map.normal", [] {
  NSError *error = staleError();
  id<WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge> map =
      WRTMapOf((@{@"text" : @[ @".txt", @".md" ]}),
               WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge, &error);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(".txt .md", joinedStrings([map lookupWithKey:@"text" error:&error]));
  checkLists(WRTMapOf(@{}, WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge, &error));

  // Where WinRT has any object, values are boxed.
  id objects = WRTMapOf((@{@"n" : @17}), WRTIMap__2_WRTHSTRING_WRTIInspectable_P_Bridge, &error);
  EXPECT_TRUE((askFor<implement::IMap<String, Inspectable>>(objects)));
  EXPECT_TRUE([WRTUnbox([WRTDictionary(objects, &error) objectForKey:@"n"]) isEqual:@17]);
});

const Cell handedInHostile("support.collections.hostile.refused", [] {
  const auto refuse = [](HRESULT code, id collection, Protocol *protocol) {
    EXPECT_FAILS(code, WRTCollectionOf(collection, protocol, &failure));
  };
  Protocol *const strings = @protocol(WRTIVector__1_WRTHSTRING_Bridge);
  Protocol *const items = @protocol(WRTIIterable__1_WRTIStorageItem_P_Bridge);
  NSArray *mixed = @[ @"a", @1 ];
  refuse(status::kPointer, nil, strings);
  refuse(status::kInvalidArgument, mixed, strings);
  refuse(status::kInvalidArgument, @{}, strings);
  refuse(status::kInvalidArgument, mixed, @protocol(WRTIAsyncActionBridge));
  refuse(status::kInvalidArgument, mixed, items);
  refuse(kNoInterface, @[ strangerOf([WRTIStorageItemBridge class]) ], items);
  refuse(status::kInvalidArgument, @{@"a" : @[ @"b", @2 ]},
         @protocol(WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge));
  refuse(status::kNotImplemented, @[ @1 ], @protocol(WRTIVectorView__1_WRTFocusMode_Bridge));
});

} // namespace

} // namespace wrt::test
