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

NSArray *numberedStrings() {
  NSMutableArray *names = [NSMutableArray array];
  for (int i = 0; i < 20; ++i)
    [names addObject:[NSString stringWithFormat:@"%d", i]];
  return names;
}

/// The component's own declaration of an interface, asked of the object: identifiers are computed
/// there by other code.
template <class Interface>
ComPtr<Interface> askFor(id bridge) {
  return ComPtr<abi::IInspectable>(static_cast<abi::IInspectable *>([bridge inner]))
      .template as<Interface>();
}

const Cell vectorHandedIn("support.collections.vector.normal", [] {
  expectLeftover({.strings = 1, .extraHandles = 1}); // of GetAt and GetMany
  NSError *error = staleErrorOfCaller();
  Strings vector = WRTVectorOf((@[ @"a", @"", @"ü𝄞" ]), WRTIVector__1_WRTHSTRING_Bridge, &error);
  EXPECT_EQ(nil, error);
  EXPECT_TRUE(askFor<implement::IIterable<String>>(vector));
  EXPECT_TRUE(askFor<abi::IAgileObject>(vector));
  EXPECT_FALSE(askFor<implement::IVectorView<String>>(vector));
  EXPECT_EQ(3u, [vector getSizeWithError:&error]);
  EXPECT_TRUE([[vector getAtWithIndex:2 error:&error] isEqual:@"ü𝄞"]);
  EXPECT_TRUE([[vector getManyWithStartIndex:2 capacity:9 error:&error] isEqual:(@[ @"ü𝄞" ])]);
  EXPECT_TRUE([[vector getManyWithStartIndex:3 capacity:9 error:&error] isEqual:@[]]);
  unsigned index = 9;
  EXPECT_TRUE([vector indexOfWithValue:@"ü𝄞" index:&index error:&error]);
  EXPECT_EQ(2u, index);
  EXPECT_FALSE([vector indexOfWithValue:@"b" index:&index error:&error]);
  id<WRTIVectorView__1_WRTHSTRING_Bridge> view = [vector getViewWithError:&error];
  auto iterator = ComPtr<implement::IIterator<String>>();
  askFor<implement::IIterable<String>>(vector)->First(iterator.put());

  [vector insertAtWithIndex:3 item:@"d" error:&error];
  [vector setAtWithIndex:1 item:@"b" error:&error];
  [vector appendWithItem:@"e" error:&error];
  [vector removeAtWithIndex:0 error:&error];
  [vector insertAtWithIndex:0 item:@"A" error:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ("A b ü𝄞 d e", joinedStrings(vector));
  EXPECT_EQ("a  ü𝄞", joinedStrings(view)) << "of that moment";
  uint8_t has = 0;
  EXPECT_EQ(status::kChangedState, iterator->get_HasCurrent(&has));
  [vector removeAtEndWithError:&error];
  [vector replaceAllWithValues:numberedStrings() error:&error];
  EXPECT_EQ("0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19", joinedStrings(vector));

  askFor<implement::IIterable<String>>(vector)->First(iterator.put());
  HSTRING current = nullptr;
  EXPECT_EQ(status::kOk, iterator->get_Current(&current));
  WRTHSTRINGRelease(current);
  int moves = 0;
  for (iterator->get_HasCurrent(&has); has; ++moves)
    iterator->MoveNext(&has);
  EXPECT_EQ(20, moves);
  EXPECT_EQ(status::kBounds, iterator->get_Current(&current));

  [vector getAtWithIndex:20 error:&error];
  EXPECT_EQ(status::kBounds, [error code]);
  [vector insertAtWithIndex:21 item:@"x" error:&error];
  EXPECT_EQ(status::kBounds, [error code]);
  [vector getManyWithStartIndex:21 capacity:1 error:&error];
  EXPECT_EQ(status::kBounds, [error code]);
  [vector clearWithError:&error];
  EXPECT_EQ(nil, error);
  [vector removeAtEndWithError:&error];
  EXPECT_EQ(status::kBounds, [error code]);

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
  NSError *error = staleErrorOfCaller();
  id<WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge> map =
      WRTMapOf((@{@"text" : @[ @".txt", @".md" ]}),
               WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge, &error);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(".txt .md", joinedStrings([map lookupWithKey:@"text" error:&error]));
  bool replaced = false;
  Strings none = WRTVectorOf(@[], WRTIVector__1_WRTHSTRING_Bridge, &error);
  id view = [map getViewWithError:&error];
  [map insertWithKey:@"none" value:none replaced:&replaced error:&error];
  EXPECT_FALSE(replaced);
  [map insertWithKey:@"text" value:none replaced:&replaced error:&error];
  EXPECT_TRUE(replaced);
  EXPECT_EQ(2u, [map getSizeWithError:&error]);
  EXPECT_EQ("", joinedStrings([map lookupWithKey:@"text" error:&error]));
  EXPECT_TRUE([map hasKeyWithKey:@"none" error:&error]);
  EXPECT_EQ(2u, [WRTDictionary(map, &error) count]);
  NSDictionary *before = WRTDictionary(view, &error);
  EXPECT_EQ(".txt .md", joinedStrings([before objectForKey:@"text"]));
  [map removeWithKey:@"none" error:&error];
  EXPECT_EQ(nil, error);
  [map lookupWithKey:@"none" error:&error];
  EXPECT_EQ(status::kBounds, [error code]);
  [map removeWithKey:@"none" error:&error];
  EXPECT_EQ(status::kBounds, [error code]);
  [map clearWithError:&error];
  EXPECT_EQ(0u, [map getSizeWithError:&error]);

  // Where WinRT has any object, values are boxed.
  id objects = WRTMapOf((@{@"n" : @17}), WRTIMap__2_WRTHSTRING_WRTIInspectable_P_Bridge, &error);
  EXPECT_TRUE((askFor<implement::IMap<String, Inspectable>>(objects)));
  EXPECT_TRUE([WRTUnbox([WRTDictionary(objects, &error) objectForKey:@"n"]) isEqual:@17]);
});

const Cell handedInHostile("support.collections.hostile.refused", [] {
  NSError *error = nil;
  const auto codeOf = [&error](id result) -> int {
    EXPECT_EQ(nil, result);
    return static_cast<int>([error code]);
  };
  NSArray *mixed = @[ @"a", @1 ];
  EXPECT_EQ(status::kPointer, codeOf(WRTVectorOf(nil, WRTIVector__1_WRTHSTRING_Bridge, &error)));
  EXPECT_EQ(status::kInvalidArgument,
            codeOf(WRTVectorOf(mixed, WRTIVector__1_WRTHSTRING_Bridge, &error)));
  EXPECT_EQ(status::kInvalidArgument,
            codeOf(WRTVectorOf(@{}, WRTIVector__1_WRTHSTRING_Bridge, &error)));
  EXPECT_EQ(status::kInvalidArgument, codeOf(WRTVectorOf(mixed, WRTIAsyncActionBridge, &error)));
  EXPECT_EQ(status::kInvalidArgument,
            codeOf(WRTVectorOf(mixed, WRTIIterable__1_WRTIStorageItem_P_Bridge, &error)));
  NSArray *strangers = @[ strangerOf([WRTIStorageItemBridge class]) ];
  EXPECT_EQ(kNoInterface,
            codeOf(WRTVectorOf(strangers, WRTIIterable__1_WRTIStorageItem_P_Bridge, &error)));
  NSDictionary *dictionary = @{@"a" : @[ @"b", @2 ]};
  EXPECT_EQ(status::kInvalidArgument,
            codeOf(WRTMapOf(dictionary, WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge,
                            &error)));
  EXPECT_EQ(status::kNotImplemented,
            codeOf(WRTVectorOf(@[ @1 ], WRTIVectorView__1_WRTFocusMode_Bridge, &error)));
});

} // namespace

} // namespace wrt::test
