// Vectors, views and iterators.

#include "tests/families/Families.h"

#include "platform/linux/components/collections/Vector.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/IIterable.h>
#import <WRTObjcBridge/IIterator.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Media.Devices.h>
#import <WRTObjcBridge/Windows.UI.Popups.h>
#include <abi/IVector.abi.h>
#include <abi/IVectorView.abi.h>
#include <abi/Windows.Media.Devices.abi.h>
#include <abi/Windows.UI.Popups.abi.h>

#include <array>

/// An array that counts one thing each time it is asked for its count.
@interface ChangingArray : NSArray {
@public
  std::vector<NSUInteger> counts;
  id element;
  NSUInteger asked;
}
@end

@implementation ChangingArray
- (NSUInteger)count {
  return counts[std::min<NSUInteger>(asked++, counts.size() - 1)];
}
- (id)objectAtIndex:(NSUInteger)index {
  return element;
}
- (id)objectAtIndexedSubscript:(NSUInteger)index {
  return element;
}
@end

namespace wrt::test {

namespace {

using namespace implement;

using Strings = id<WRTIVector__1_WRTHSTRING_Bridge>;
using Commands = id<WRTIVector__1_WRTIUICommand_P_Bridge>;
using Region = types::RegionOfInterest;
using FocusMode = types::FocusMode;

Strings newStrings(std::initializer_list<std::u16string_view> texts = {}) {
  abi::IVector__1_WRTHSTRING *vector = nullptr;
  makeVector<String>(&vector, Items<String>(texts.begin(), texts.end()));
  return static_cast<Strings>([WRTIVector__1_WRTHSTRING_Bridge bridgeTransfer:vector]);
}

Commands newCommands() {
  abi::IVector__1_WRTIUICommand_P *vector = nullptr;
  makeVector<Ref<abi::IUICommand>>(&vector);
  return static_cast<Commands>([WRTIVector__1_WRTIUICommand_P_Bridge bridgeTransfer:vector]);
}

id<WRTIUICommandBridge> newCommand() {
  return [WRTIUICommandBridge bridgeTransfer:make<StandIn<abi::IUICommand>>().detach()->identity()];
}

/// The elements, joined by spaces; each is a string that the bulk read leaves behind.
std::string contents(Strings strings) {
  NSArray *all = [strings getManyWithStartIndex:0 capacity:100 error:nullptr];
  return [[all componentsJoinedByString:@" "] UTF8String];
}

const Cell strings("collection.vector.strings.normal", [] {
  expectLeftover({.strings = 3, .extraHandles = 3}); // strings that are read are not released
  Strings vector = newStrings();
  NSError *error = staleErrorOfCaller();
  [vector appendWithItem:@"b" error:&error];
  EXPECT_EQ(nil, error);
  [vector insertAtWithIndex:0 item:@"a" error:&error];
  [vector insertAtWithIndex:2 item:@"d" error:&error];
  [vector setAtWithIndex:2 item:@"c😀" error:&error];
  [vector appendWithItem:nil error:&error];
  EXPECT_EQ("a b c😀 ", contents(vector));
  EXPECT_EQ(4u, [vector getSizeWithError:&error]);
  EXPECT_TRUE([[vector getAtWithIndex:2 error:&error] isEqual:@"c😀"]);
  unsigned int index = 99;
  EXPECT_TRUE([vector indexOfWithValue:@"b" index:&index error:&error]);
  EXPECT_EQ(1u, index);
  EXPECT_FALSE([vector indexOfWithValue:@"x" index:&index error:&error]);
  EXPECT_EQ(nil, error) << "an absent value is no failure";
  [vector removeAtWithIndex:0 error:&error];
  [vector removeAtEndWithError:&error];
  EXPECT_EQ("b c😀", contents(vector));
  [vector clearWithError:&error];
  EXPECT_EQ(0u, [vector getSizeWithError:&error]);
  EXPECT_EQ(nil, error);
});

const Cell bulkRead("collection.vector.bulk_read.normal", [] {
  expectLeftover({.strings = 3}); // strings that are read are not released
  Strings vector = newStrings({u"a", u"b", u"c"});
  NSError *error = staleErrorOfCaller();
  NSArray *part = [vector getManyWithStartIndex:1 capacity:17 error:&error];
  EXPECT_TRUE([part isEqual:(@[ @"b", @"c" ])]) << "across the end";
  EXPECT_EQ(nil, error);
  EXPECT_EQ(1u, [[vector getManyWithStartIndex:0 capacity:1 error:&error] count]);
  for (unsigned int start : {0u, 3u}) {
    NSArray *nothing = [vector getManyWithStartIndex:start
                                            capacity:start == 0 ? 0 : 5
                                               error:&error];
    EXPECT_NE(nil, nothing);
    EXPECT_EQ(0u, [nothing count]);
    EXPECT_EQ(nil, error);
  }
  PlatformTrace trace;
  EXPECT_EQ(nil, [vector getManyWithStartIndex:4 capacity:2 error:&error]);
  EXPECT_EQ(status::kBounds, [error code]);
  EXPECT_EQ("WRTTaskMemAlloc WRTTaskMemFree WRTIUnknownRelease", trace.names());
});

// What is out of range is refused, and so is what a failure half-way takes back.
const Cell refused("collection.vector.strings.refused", [] {
  Strings vector = newStrings({u"only"});
  NSError *error = nil;
  const auto expectBounds = [&](auto act) {
    error = nil;
    act();
    EXPECT_EQ(status::kBounds, [error code]);
  };
  expectBounds([&] { [vector getAtWithIndex:1 error:&error]; });
  expectBounds([&] { [vector getAtWithIndex:0xFFFFFFFF error:&error]; });
  expectBounds([&] { [vector setAtWithIndex:1 item:@"x" error:&error]; });
  expectBounds([&] { [vector insertAtWithIndex:2 item:@"x" error:&error]; });
  expectBounds([&] { [vector removeAtWithIndex:1 error:&error]; });
  failNextDuplicate(status::kOutOfMemory);
  EXPECT_EQ(nil, [vector getManyWithStartIndex:0 capacity:3 error:&error]);
  EXPECT_EQ(status::kOutOfMemory, [error code]);
  error = nil;
  failNextDuplicate(status::kOutOfMemory, 1);
  [vector replaceAllWithValues:@[ @"a", @"b", @"c" ] error:&error];
  EXPECT_EQ(status::kOutOfMemory, [error code]);
  EXPECT_EQ(1u, [vector getSizeWithError:&error]) << "the vector is as it was";
  [vector removeAtEndWithError:&error];
  EXPECT_EQ(nil, error);
  expectBounds([&] { [vector removeAtEndWithError:&error]; });
});

const Cell bulkReplace("collection.vector.bulk_replace.normal", [] {
  Strings vector = newStrings({u"old"});
  NSMutableArray *fresh = [NSMutableArray array];
  for (int i = 0; i < 17; ++i)
    [fresh addObject:[NSString stringWithFormat:@"%d", i]];
  NSError *error = staleErrorOfCaller();
  for (NSArray *values in @[ fresh, @[ @"x", @"y" ], @[] ]) {
    [vector replaceAllWithValues:values error:&error];
    EXPECT_EQ([values count], [vector getSizeWithError:&error]);
  }
  [vector appendWithItem:@"x" error:&error];
  [vector replaceAllWithValues:nil error:&error];
  EXPECT_EQ(0u, [vector getSizeWithError:&error]);
  EXPECT_EQ(nil, error);
});

const Cell objects("collection.vector.objects.normal", [] {
  Commands vector = newCommands();
  id<WRTIUICommandBridge> first = newCommand();
  id<WRTIUICommandBridge> second = newCommand();
  NSError *error = nil;
  [vector replaceAllWithValues:@[ first, second, first ] error:&error];
  id<WRTIUICommandBridge> element = [vector getAtWithIndex:1 error:&error];
  EXPECT_EQ([WRTIUICommandBridge class], [static_cast<id>(element) class]);
  EXPECT_EQ([static_cast<id>(second) inner], [static_cast<id>(element) inner]);
  unsigned int index = 0;
  EXPECT_TRUE([vector indexOfWithValue:second index:&index error:&error]);
  EXPECT_EQ(1u, index);
  EXPECT_FALSE([vector indexOfWithValue:newCommand() index:&index error:&error]);
  EXPECT_EQ(3u, [[vector getManyWithStartIndex:0 capacity:5 error:&error] count]);
  clearLog();
  [vector setAtWithIndex:0 item:nil error:&error];
  EXPECT_EQ(nil, [vector getAtWithIndex:0 error:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_TRUE(logRecords().empty()) << "a null interface is not reported";
});

const Cell objectsFailingElement("collection.vector.objects.failing_element", [] {
  Commands vector = newCommands();
  id stranger = strangerOf([WRTIUICommandBridge class]);
  id<WRTIUICommandBridge> command = newCommand();
  [vector appendWithItem:command error:nullptr];
  NSError *error = nil;
  [vector replaceAllWithValues:@[ command, command, stranger, command ] error:&error];
  EXPECT_EQ(kNoInterface, [error code]);
  error = nil;
  [vector appendWithItem:stranger error:&error];
  EXPECT_EQ(kNoInterface, [error code]);
  error = nil;
  [vector setAtWithIndex:0 item:stranger error:&error];
  EXPECT_EQ(kNoInterface, [error code]);
  EXPECT_EQ(1u, [vector getSizeWithError:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ([static_cast<id>(command) inner],
            [static_cast<id>([vector getAtWithIndex:0 error:&error]) inner]);
});

// Counts: what is passed on, what is allocated, then before each element. Neither side touches
// more than there is.
const Cell changingArrays("collection.vector.array.changing", [] {
  for (const std::vector<NSUInteger> &counts : {std::vector<NSUInteger>{2, 2, 3, 3, 3, 3},
                                                {3, 3, 3, 1, 1},
                                                {3, 2, 2, 2, 2},
                                                {2, 3, 3, 3, 3},
                                                {0, 0, 2, 2, 2}}) {
    ChangingArray *array = [[[ChangingArray alloc] init] autorelease];
    array->counts = counts;
    array->element = @"element";
    Strings vector = newStrings();
    NSError *error = nil;
    [vector replaceAllWithValues:array error:&error];
    EXPECT_EQ(nil, error);
    EXPECT_EQ(counts[0], [vector getSizeWithError:nullptr]);

    array->element = newCommand();
    array->asked = 0;
    Commands commands = newCommands();
    [commands replaceAllWithValues:array error:&error];
    EXPECT_EQ(nil, error);
    EXPECT_EQ(counts[0], [commands getSizeWithError:nullptr]);
  }
});

// A view is of the moment when it was taken, and is the class of its own instantiation.
const Cell view("collection.view.strings.normal", [] {
  expectLeftover({.strings = 2}); // strings that are read are not released
  Strings vector = newStrings({u"a", u"b"});
  NSError *error = staleErrorOfCaller();
  id<WRTIVectorView__1_WRTHSTRING_Bridge> view = [vector getViewWithError:&error];
  EXPECT_EQ([WRTIVectorView__1_WRTHSTRING_Bridge class], [static_cast<id>(view) class]);
  [vector clearWithError:&error];
  EXPECT_EQ(2u, [view getSizeWithError:&error]);
  unsigned int index = 0;
  EXPECT_TRUE([view indexOfWithItem:@"b" index:&index error:&error]);
  EXPECT_EQ(1u, index);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(nil, [view getAtWithIndex:2 error:&error]);
  EXPECT_EQ(status::kBounds, [error code]);
  NSArray *all = [view getManyWithStartIndex:0 capacity:9 error:&error];
  EXPECT_TRUE([all isEqual:(@[ @"a", @"b" ])]);
});

// Numbers go straight into the caller's buffer.
const Cell scalarView("collection.view.scalars.normal", [] {
  abi::IVectorView__1_WRTFocusMode *raw = nullptr;
  makeVectorView<FocusMode>(&raw, {3, -1, 2});
  id<WRTIVectorView__1_WRTFocusMode_Bridge> view =
      [WRTIVectorView__1_WRTFocusMode_Bridge bridgeTransfer:raw];
  std::array<int, 5> items;
  items.fill(0x0CCC);
  unsigned int actual = 99;
  NSError *error = staleErrorOfCaller();
  {
    PlatformTrace trace;
    [view getManyWithStartIndex:1 capacity:4 items:items.data() actual:&actual error:&error];
    EXPECT_EQ("WRTIUnknownRelease", trace.names());
  }
  EXPECT_EQ(nil, error);
  EXPECT_EQ(2u, actual);
  EXPECT_EQ((std::array<int, 5>{-1, 2, 0x0CCC, 0x0CCC, 0x0CCC}), items);
  [view getManyWithStartIndex:0 capacity:0 items:nullptr actual:&actual error:&error];
  EXPECT_EQ(0u, actual);
  EXPECT_EQ(nil, error);
  [view getManyWithStartIndex:4 capacity:1 items:items.data() actual:&actual error:&error];
  EXPECT_EQ(status::kBounds, [error code]);
  EXPECT_EQ(-1, [view getAtWithIndex:1 error:&error]);
  unsigned int index = 0;
  EXPECT_TRUE([view indexOfWithItem:2 index:&index error:&error]);
  EXPECT_EQ(2u, index);
});

const Cell iteration("collection.iterator.objects.normal", [] {
  auto vector = make<Vector<Region>>();
  id<WRTIIterable__1_WRTRegionOfInterest_P_Bridge> iterable =
      [WRTIIterable__1_WRTRegionOfInterest_P_Bridge bridge:vector->identity()];
  std::vector<ComPtr<StandIn<abi::IRegionOfInterest>>> regions;
  for (int i = 0; i < 20; ++i) {
    regions.push_back(make<StandIn<abi::IRegionOfInterest>>());
    vector->Append(regions.back()->interface());
  }
  NSError *error = staleErrorOfCaller();
  id<WRTIIterator__1_WRTRegionOfInterest_P_Bridge> iterator = [iterable firstWithError:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ([WRTIIterator__1_WRTRegionOfInterest_P_Bridge class],
            [static_cast<id>(iterator) class]);
  size_t count = 0;
  for (bool more = [iterator getHasCurrentWithError:&error]; more && count < 3;
       more = [iterator moveNextWithError:&error], ++count) {
    WRTRegionOfInterestBridge *current = [iterator getCurrentWithError:&error];
    EXPECT_EQ([WRTRegionOfInterestBridge class], [current class]);
    EXPECT_EQ(static_cast<void *>(regions[count]->identity()), [current inner]);
  }
  EXPECT_EQ(16u, [[iterator getManyWithCapacity:16 error:&error] count]);
  NSArray *last = [iterator getManyWithCapacity:16 error:&error];
  ASSERT_EQ(1u, [last count]) << "across the end";
  EXPECT_EQ(static_cast<void *>(regions[19]->identity()), [[last objectAtIndex:0] inner]);
  EXPECT_EQ(nil, error);

  EXPECT_FALSE([iterator getHasCurrentWithError:&error]);
  EXPECT_FALSE([iterator moveNextWithError:&error]);
  EXPECT_EQ(0u, [[iterator getManyWithCapacity:4 error:&error] count]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(nil, [iterator getCurrentWithError:&error]);
  EXPECT_EQ(status::kBounds, [error code]) << "past the end";
});

// Every question to an iterator whose collection has changed is refused; a failed change is none.
const Cell iterationChanged("collection.iterator.objects.changed", [] {
  auto vector = make<Vector<Region>>();
  vector->Append(nullptr);
  id<WRTIIterable__1_WRTRegionOfInterest_P_Bridge> iterable =
      [WRTIIterable__1_WRTRegionOfInterest_P_Bridge bridge:vector->identity()];
  id<WRTIIterator__1_WRTRegionOfInterest_P_Bridge> iterator = [iterable firstWithError:nullptr];
  NSError *error = nil;
  EXPECT_EQ(status::kBounds, vector->RemoveAt(7));
  EXPECT_TRUE([iterator getHasCurrentWithError:&error]);
  vector->SetAt(0, nullptr);
  EXPECT_FALSE([iterator getHasCurrentWithError:&error]);
  EXPECT_EQ(status::kChangedState, [error code]);
  error = nil;
  EXPECT_FALSE([iterator moveNextWithError:&error]);
  EXPECT_EQ(status::kChangedState, [error code]);
  EXPECT_EQ(nil, [iterator getCurrentWithError:nullptr]);
  EXPECT_EQ(nil, [iterator getManyWithCapacity:1 error:nullptr]);
});

} // namespace

} // namespace wrt::test
