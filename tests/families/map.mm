// Maps, and the key-value pairs that iterating them yields.

#include "tests/families/Families.h"

#include "platform/linux/components/collections/ObservableMap.h"
#include "platform/linux/components/collections/Vector.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/IMap.h>
#import <WRTObjcBridge/IMapView.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/WRTIInspectableBridge.h>

namespace wrt::test {

namespace {

using namespace implement;

using Lists = id<WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge>;
using Objects = id<WRTIMap__2_WRTIInspectable_P_WRTIInspectable_P_Bridge>;
using ListType = Ref<IVector<String>>;

Objects newObjects() {
  const auto map = make<Map<Inspectable, Inspectable>>();
  return static_cast<Objects>(
      [WRTIMap__2_WRTIInspectable_P_WRTIInspectable_P_Bridge bridge:map->identity()]);
}

id<WRTIInspectableBridge> newObject() {
  return [WRTIInspectableBridge
      bridgeTransfer:make<StandIn<abi::IInspectable>>().detach()->identity()];
}

} // namespace

void checkLists(Lists map) {
  NSError *error = staleError();
  const auto listOf = [](std::u16string_view text) {
    IVector<String> *list = nullptr;
    makeVector<String>(&list, {StringHolder(text)});
    return [WRTIVector__1_WRTHSTRING_Bridge bridgeTransfer:list];
  };
  const auto first = [](const ComPtr<IVector<String>> &list) {
    StringHolder text;
    return list && list->GetAt(0, text.put()) >= 0 ? std::u16string(text.view()) : u"none";
  };
  bool replaced = true;
  [map insertWithKey:@"key" value:listOf(u"one") replaced:&replaced error:&error];
  EXPECT_FALSE(replaced);
  EXPECT_EQ(nil, error);
  const auto view = askFor<IMapView<String, ListType>>([map getViewWithError:&error]);
  ASSERT_TRUE(view);
  [map insertWithKey:@"other" value:listOf(u"two") replaced:&replaced error:&error];
  EXPECT_FALSE(replaced);
  [map insertWithKey:@"key" value:listOf(u"three") replaced:&replaced error:&error];
  EXPECT_TRUE(replaced);
  EXPECT_EQ(2u, [map getSizeWithError:&error]);
  EXPECT_EQ(u"three", first(askFor<IVector<String>>([map lookupWithKey:@"key" error:&error])));
  EXPECT_TRUE([map hasKeyWithKey:@"other" error:&error]);
  ComPtr<IVector<String>> old;
  view->Lookup(StringHolder(u"key").get(), old.put());
  EXPECT_EQ(u"one", first(old)) << "of that moment";
  uint32_t size = 0;
  view->get_Size(&size);
  EXPECT_EQ(1u, size);
  [map removeWithKey:@"other" error:&error];
  EXPECT_FALSE([map hasKeyWithKey:@"other" error:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_FAILS(status::kBounds, [map lookupWithKey:@"other" error:&failure]);
  EXPECT_FAILS(status::kBounds, [map removeWithKey:@"other" error:&failure]);
  [map clearWithError:&error];
  EXPECT_EQ(0u, [map getSizeWithError:&error]);
  [map insertWithKey:nil value:nil replaced:&replaced error:&error];
  EXPECT_TRUE([map hasKeyWithKey:@"" error:&error]) << "nil is the empty string";
  clearLog();
  EXPECT_EQ(nil, [map lookupWithKey:nil error:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_TRUE(logRecords().empty()) << "a null value";
}

namespace {

const Cell lists("map.lists.all.normal", [] {
  const auto map = make<Map<String, ListType>>();
  checkLists([WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge bridge:map->identity()]);
});

const Cell objectKeys("map.objects.all.normal", [] {
  Objects map = newObjects();
  id<WRTIInspectableBridge> key = newObject();
  id<WRTIInspectableBridge> value = newObject();
  NSError *error = nil;
  bool replaced = true;
  [map insertWithKey:key value:value replaced:&replaced error:&error];
  id<WRTIInspectableBridge> found = [map lookupWithKey:key error:&error];
  EXPECT_EQ([static_cast<id>(value) inner], [static_cast<id>(found) inner]);
  EXPECT_FALSE([map hasKeyWithKey:value error:&error]);
  [map insertWithKey:nil value:key replaced:&replaced error:&error];
  EXPECT_FALSE(replaced);
  id same = [WRTIInspectableBridge cast:static_cast<id>(key)];
  [map insertWithKey:same value:nil replaced:&replaced error:&error];
  EXPECT_TRUE(replaced) << "the same object behind another bridge";
  EXPECT_EQ(nil, [map lookupWithKey:key error:&error]);
  [map removeWithKey:nil error:&error];
  EXPECT_FALSE([map hasKeyWithKey:nil error:&error]);
  EXPECT_EQ(1u, [map getSizeWithError:&error]);
  EXPECT_EQ(nil, error);
});

// The key is converted first and released although the value cannot be.
const Cell objectLacksInterface("map.objects.key_and_value.interface_missing", [] {
  Objects map = newObjects();
  id stranger = strangerOf([WRTIInspectableBridge class]);
  id<WRTIInspectableBridge> object = newObject();
  for (bool badKey : {true, false}) {
    bool replaced = true;
    PlatformTrace trace;
    EXPECT_FAILS(kNoInterface, [map insertWithKey:badKey ? stranger : object
                                            value:badKey ? object : stranger
                                         replaced:&replaced
                                            error:&failure]);
    EXPECT_TRUE(replaced) << "the call is not made";
    EXPECT_EQ(badKey ? "WRTIUnknownRelease" : "WRTIUnknownRelease WRTIUnknownRelease",
              trace.names());
  }
  EXPECT_EQ(0u, [map getSizeWithError:nullptr]);
});

// The library has no members for these: a component sees keys in order, and that the map changed.
const Cell iteration("map.iterator.pairs.normal", [] {
  const auto map = make<Map<String, Int32>>(
      Entries<String, Int32>{{StringHolder(u"b"), 2}, {StringHolder(u"a"), 1}, {{}, 0}});
  ComPtr<IIterator<PairOf<String, Int32>>> iterator;
  ASSERT_EQ(status::kOk, map->First(iterator.put()));
  IKeyValuePair<String, Int32> *pairs[5] = {};
  uint32_t actual = 0;
  EXPECT_EQ(status::kOk, iterator->GetMany(5, pairs, &actual));
  ASSERT_EQ(3u, actual);
  std::u16string keys;
  for (int32_t i = 0; i < 3; ++i) {
    const auto pair = ComPtr<IKeyValuePair<String, Int32>>::adopt(pairs[i]);
    StringHolder key;
    int32_t value = -1;
    EXPECT_EQ(status::kOk, pair->get_Key(key.put()));
    EXPECT_EQ(status::kOk, pair->get_Value(&value));
    EXPECT_EQ(i, value);
    keys += std::u16string(key.view()) + u";";
  }
  EXPECT_EQ(u";a;b;", keys);
  map->Remove(StringHolder(u"a").get());
  uint8_t has = 1;
  EXPECT_EQ(status::kChangedState, iterator->get_HasCurrent(&has));
});

/// An object that asks for `size` on another thread whenever it is asked for an interface.
class Reentrant final : public Implements<Memberless<abi::IInspectable>> {
public:
  std::function<void()> question;
  int answers = 0;

  HRESULT WRT_ABI QueryInterface(const GUID *iid, void **result) override {
    auto gate = std::make_shared<Gate>();
    std::thread([question = question, gate] {
      question();
      gate->open();
    }).detach();
    gate->wait();
    ++answers;
    return Implements::QueryInterface(iid, result);
  }
};

// Whoever is asked for an interface may use the collection meanwhile.
const Cell reentrant("collection.object.any.reentrant", [] {
  const auto object = make<Reentrant>(), other = make<Reentrant>();
  const auto map = make<Map<Inspectable, Int32>>();
  const auto vector = make<Vector<Inspectable>>(Items<Inspectable>{object, other});
  object->question = other->question = [map = map.get(), vector = vector.get()] {
    uint32_t size = 0;
    map->get_Size(&size);
    vector->get_Size(&size);
  };
  uint8_t flag = 0;
  uint32_t index = 0;
  int32_t value = 0;
  EXPECT_EQ(status::kOk, map->Insert(object.get(), 1, &flag));
  EXPECT_EQ(status::kOk, map->Insert(other.get(), 2, &flag));
  EXPECT_EQ(status::kOk, map->Lookup(other.get(), &value));
  EXPECT_EQ(2, value);
  EXPECT_EQ(status::kOk, map->Remove(object.get()));
  EXPECT_EQ(status::kOk, vector->IndexOf(other.get(), &index, &flag));
  EXPECT_EQ(1u, index);
  EXPECT_LT(2, object->answers + other->answers);
});

} // namespace

} // namespace wrt::test
