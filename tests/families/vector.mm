// Vectors, views and iterators.

#include "tests/families/Families.h"
#include "tests/matrix/Fixture.h"

#include "platform/linux/components/collections/Vector.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/IIterable.h>
#import <WRTObjcBridge/IIterator.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Media.Devices.h>
#import <WRTObjcBridge/Windows.UI.Popups.h>
#include <abi/IVectorView.abi.h>
#include <abi/Windows.Media.Devices.abi.h>
#include <abi/Windows.UI.Popups.abi.h>

#include <array>

namespace wrt::test {

namespace {

using namespace implement;

using Strings = id<WRTIVector__1_WRTHSTRING_Bridge>;
using Commands = id<WRTIVector__1_WRTIUICommand_P_Bridge>;
using Regions = WRTIIterable__1_WRTRegionOfInterest_P_Bridge;
using RegionIterator = id<WRTIIterator__1_WRTRegionOfInterest_P_Bridge>;
using Region = types::RegionOfInterest;
using FocusMode = types::FocusMode;

Strings newStrings(std::initializer_list<std::u16string_view> texts = {}) {
  const auto vector = make<Vector<String>>(Items<String>(texts.begin(), texts.end()));
  return static_cast<Strings>([WRTIVector__1_WRTHSTRING_Bridge bridge:vector->identity()]);
}

Commands newCommands() {
  const auto vector = make<Vector<Ref<abi::IUICommand>>>();
  return static_cast<Commands>([WRTIVector__1_WRTIUICommand_P_Bridge bridge:vector->identity()]);
}

id<WRTIUICommandBridge> newCommand() {
  return [WRTIUICommandBridge bridgeTransfer:make<StandIn<abi::IUICommand>>().detach()->identity()];
}

} // namespace

void checkStrings(Strings vector) {
  NSError *error = staleError();
  [vector appendWithItem:@"b" error:&error];
  EXPECT_EQ(nil, error);
  [vector insertAtWithIndex:0 item:@"a" error:&error];
  [vector insertAtWithIndex:2 item:@"d" error:&error];
  [vector setAtWithIndex:2 item:@"ü𝄞" error:&error];
  [vector appendWithItem:nil error:&error];
  NSArray *const all = @[ @"a", @"b", @"ü𝄞", @"" ];
  EXPECT_TRUE([[vector getManyWithStartIndex:0 capacity:17 error:&error] isEqual:all]);
  EXPECT_TRUE([[vector getManyWithStartIndex:1 capacity:1 error:&error] isEqual:@[ @"b" ]]);
  EXPECT_TRUE([[vector getManyWithStartIndex:0 capacity:0 error:&error] isEqual:@[]]);
  EXPECT_TRUE([[vector getManyWithStartIndex:4 capacity:5 error:&error] isEqual:@[]]);
  EXPECT_TRUE([[vector getAtWithIndex:2 error:&error] isEqual:@"ü𝄞"]);
  unsigned int index = 99;
  EXPECT_TRUE([vector indexOfWithValue:@"ü𝄞" index:&index error:&error]);
  EXPECT_EQ(2u, index);
  EXPECT_FALSE([vector indexOfWithValue:@"x" index:&index error:&error]);
  id<WRTIVectorView__1_WRTHSTRING_Bridge> view = [vector getViewWithError:&error];
  const auto iterable = askFor<IIterable<String>>(vector);
  ASSERT_TRUE(iterable);
  ComPtr<IIterator<String>> iterator;
  iterable->First(iterator.put());
  EXPECT_EQ(nil, error) << "an absent value is no failure";

  EXPECT_FAILS(status::kBounds, [vector getAtWithIndex:4 error:&failure]);
  EXPECT_FAILS(status::kBounds, [vector getAtWithIndex:0xFFFFFFFF error:&failure]);
  EXPECT_FAILS(status::kBounds, [vector setAtWithIndex:4 item:@"x" error:&failure]);
  EXPECT_FAILS(status::kBounds, [vector insertAtWithIndex:5 item:@"x" error:&failure]);
  EXPECT_FAILS(status::kBounds, [vector removeAtWithIndex:4 error:&failure]);
  EXPECT_FAILS(status::kBounds, [vector getManyWithStartIndex:5 capacity:2 error:&failure]);
  uint8_t has = 0;
  EXPECT_EQ(status::kOk, iterator->get_HasCurrent(&has)) << "a refused change is none";
  const auto expectChange = [&](auto act) {
    iterable->First(iterator.put());
    act();
    EXPECT_EQ(status::kChangedState, iterator->get_HasCurrent(&has));
  };
  expectChange([&] { [vector insertAtWithIndex:0 item:@"0" error:&error]; });
  expectChange([&] { [vector appendWithItem:@"z" error:&error]; });
  expectChange([&] { [vector removeAtEndWithError:&error]; });
  expectChange([&] { [vector setAtWithIndex:0 item:@"1" error:&error]; });
  expectChange([&] { [vector removeAtWithIndex:0 error:&error]; });
  [vector removeAtWithIndex:0 error:&error];
  [vector removeAtEndWithError:&error];
  EXPECT_FALSE([vector indexOfWithValue:@"" index:&index error:&error]);
  EXPECT_TRUE([vector indexOfWithValue:@"ü𝄞" index:&index error:&error]);
  EXPECT_EQ(1u, index);

  for (NSArray *values in @[ @[ @"x", @"y" ], @[], numbered(20) ]) {
    [vector replaceAllWithValues:values error:&error];
    EXPECT_EQ([values count], [vector getSizeWithError:&error]);
  }
  iterable->First(iterator.put());
  int moves = 0;
  for (iterator->get_HasCurrent(&has); has; ++moves)
    iterator->MoveNext(&has);
  EXPECT_EQ(20, moves);
  StringHolder past;
  EXPECT_EQ(status::kBounds, iterator->get_Current(past.put()));
  [vector replaceAllWithValues:nil error:&error];
  EXPECT_EQ(0u, [vector getSizeWithError:&error]);
  [vector appendWithItem:@"x" error:&error];
  [vector clearWithError:&error];
  EXPECT_EQ(nil, error);
  EXPECT_FAILS(status::kBounds, [vector removeAtEndWithError:&failure]);

  EXPECT_EQ([WRTIVectorView__1_WRTHSTRING_Bridge class], [static_cast<id>(view) class]);
  EXPECT_EQ(4u, [view getSizeWithError:&error]) << "of that moment";
  EXPECT_TRUE([view indexOfWithItem:@"b" index:&index error:&error]);
  EXPECT_EQ(1u, index);
  EXPECT_TRUE([[view getManyWithStartIndex:0 capacity:9 error:&error] isEqual:all]);
  EXPECT_EQ(nil, error);
  EXPECT_FAILS(status::kBounds, [view getAtWithIndex:4 error:&failure]);
}

namespace {

const Cell strings("collection.vector.strings.normal", [] {
  expectLeftover({.strings = 3, .extraHandles = 5}); // strings that are read are not released
  checkStrings(newStrings());
});

// What a failure half-way takes back.
const Cell refused("collection.vector.strings.refused", [] {
  Strings vector = newStrings({u"only"});
  failNextDuplicate(status::kOutOfMemory);
  EXPECT_FAILS(status::kOutOfMemory, [vector getManyWithStartIndex:0 capacity:3 error:&failure]);
  failNextDuplicate(status::kOutOfMemory, 1);
  NSArray *const values = @[ @"a", @"b", @"c" ];
  EXPECT_FAILS(status::kOutOfMemory, [vector replaceAllWithValues:values error:&failure]);
  EXPECT_EQ(1u, [vector getSizeWithError:nullptr]) << "the vector is as it was";
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
  NSArray *const values = @[ command, command, stranger, command ];
  EXPECT_FAILS(kNoInterface, [vector replaceAllWithValues:values error:&failure]);
  EXPECT_FAILS(kNoInterface, [vector appendWithItem:stranger error:&failure]);
  EXPECT_FAILS(kNoInterface, [vector setAtWithIndex:0 item:stranger error:&failure]);
  EXPECT_EQ(1u, [vector getSizeWithError:nullptr]);
  EXPECT_EQ([static_cast<id>(command) inner],
            [static_cast<id>([vector getAtWithIndex:0 error:nullptr]) inner]);
});

// Counts: what is passed on, what is allocated, then before each element. Neither side touches
// more than there is.
const Cell changingArrays("collection.vector.array.changing", [] {
  for (const std::vector<NSUInteger> &counts : {std::vector<NSUInteger>{2, 2, 3, 3, 3, 3},
                                                {3, 3, 3, 1, 1},
                                                {3, 2, 2, 2, 2},
                                                {2, 3, 3, 3, 3},
                                                {0, 0, 2, 2, 2}}) {
    ProbeArray *array = [[[ProbeArray alloc] init] autorelease];
    array->counts = counts;
    array->element = @"element";
    Strings vector = newStrings();
    NSError *error = nil;
    [vector replaceAllWithValues:array error:&error];
    EXPECT_EQ(nil, error);
    EXPECT_EQ(counts[0], [vector getSizeWithError:nullptr]);

    array->element = newCommand();
    array->asked.clear();
    Commands commands = newCommands();
    [commands replaceAllWithValues:array error:&error];
    EXPECT_EQ(nil, error);
    EXPECT_EQ(counts[0], [commands getSizeWithError:nullptr]);
  }
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
  NSError *error = staleError();
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
  EXPECT_FAILS(status::kBounds, [view getManyWithStartIndex:4
                                                   capacity:1
                                                      items:items.data()
                                                     actual:&actual
                                                      error:&failure]);
  EXPECT_EQ(-1, [view getAtWithIndex:1 error:&error]);
  unsigned int index = 0;
  EXPECT_TRUE([view indexOfWithItem:2 index:&index error:&error]);
  EXPECT_EQ(2u, index);
});

const Cell iteration("collection.iterator.objects.normal", [] {
  auto vector = make<Vector<Region>>();
  Regions *iterable = [Regions bridge:vector->identity()];
  std::vector<ComPtr<StandIn<abi::IRegionOfInterest>>> regions;
  for (int i = 0; i < 20; ++i) {
    regions.push_back(make<StandIn<abi::IRegionOfInterest>>());
    vector->Append(regions.back()->interface());
  }
  NSError *error = staleError();
  RegionIterator iterator = [iterable firstWithError:&error];
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
  EXPECT_FAILS(status::kBounds, [iterator getCurrentWithError:&failure]) << "past the end";
});

// Every question to an iterator whose collection has changed is refused; a failed change is none.
const Cell iterationChanged("collection.iterator.objects.changed", [] {
  auto vector = make<Vector<Region>>();
  vector->Append(nullptr);
  Regions *iterable = [Regions bridge:vector->identity()];
  RegionIterator iterator = [iterable firstWithError:nullptr];
  EXPECT_EQ(status::kBounds, vector->RemoveAt(7));
  EXPECT_TRUE([iterator getHasCurrentWithError:nullptr]);
  vector->SetAt(0, nullptr);
  EXPECT_FAILS(status::kChangedState, [iterator getHasCurrentWithError:&failure]);
  EXPECT_FAILS(status::kChangedState, [iterator moveNextWithError:&failure]);
  EXPECT_FAILS(status::kChangedState, [iterator getCurrentWithError:&failure]);
  EXPECT_FAILS(status::kChangedState, [iterator getManyWithCapacity:1 error:&failure]);
});

} // namespace

} // namespace wrt::test
