// Collections that tell about their changes.

#include "tests/families/Families.h"

#include "platform/linux/components/collections/ObservableMap.h"
#include "platform/linux/components/collections/ObservableVector.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/IObservableVector.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/Windows.Foundation.Collections.h>
#import <WRTObjcBridge/Windows.Storage.h>
#include <abi/Windows.Storage.abi.h>

namespace wrt::test {

namespace {

using namespace implement;

using Folder = types::StorageFolder;
using Folders = id<WRTIVector__1_WRTStorageFolder_P_Bridge>;
using ObservableFolders = id<WRTIObservableVector__1_WRTStorageFolder_P_Bridge>;

ObservableFolders newFolders() {
  IObservableVector<Folder> *const vector = make<ObservableVector<Folder>>().detach();
  return static_cast<ObservableFolders>(
      [WRTIObservableVector__1_WRTStorageFolder_P_Bridge bridgeTransfer:vector]);
}

/// The same object as the vector that changes it.
Folders vectorOf(ObservableFolders folders) {
  return static_cast<Folders>(
      [WRTIVector__1_WRTStorageFolder_P_Bridge cast:static_cast<id>(folders)]);
}

/// Every change of a vector, as in `1@0`: kind and index. Sender and arguments are what they should
/// be.
const Cell everyChange("observable.vector.every_change.normal", [] {
  ObservableFolders folders = newFolders();
  std::string changes;
  std::string *const seen = &changes;
  const auto handler =
      ^HRESULT(ObservableFolders sender, id<WRTIVectorChangedEventArgsBridge> event) {
        EXPECT_EQ([WRTIObservableVector__1_WRTStorageFolder_P_Bridge class],
                  [static_cast<id>(sender) class]);
        EXPECT_EQ([static_cast<id>(folders) inner], [static_cast<id>(sender) inner]);
        EXPECT_EQ([WRTIVectorChangedEventArgsBridge class], [static_cast<id>(event) class]);
        const auto change = askFor<IVectorChangedEventArgs>(event);
        int32_t kind = 0;
        uint32_t index = 0;
        change->get_CollectionChange(&kind);
        change->get_Index(&index);
        *seen += std::to_string(kind) + "@" + std::to_string(index) + " ";
        return 0;
      };
  const WRTEventRegistrationToken token = [folders addVectorChangedWithHandler:handler
                                                                         error:nullptr];
  Folders changed = vectorOf(folders);
  [changed appendWithItem:nil error:nullptr];
  [changed appendWithItem:nil error:nullptr];
  [changed insertAtWithIndex:1 item:nil error:nullptr];
  [changed setAtWithIndex:2 item:nil error:nullptr];
  [changed removeAtWithIndex:0 error:nullptr];
  [changed removeAtEndWithError:nullptr];
  [changed removeAtWithIndex:9 error:nullptr];
  [changed replaceAllWithValues:@[] error:nullptr];
  [changed clearWithError:nullptr];
  EXPECT_EQ("1@0 1@1 1@1 3@2 2@0 2@1 0@0 0@0 ", changes) << "a refused change is none";
  EXPECT_GT(token.value, 0xFFFFFFFFll) << "beyond 32 bits";
  NSError *error = staleError();
  [folders removeVectorChangedWithToken:token error:&error];
  [folders removeVectorChangedWithToken:token error:&error];
  EXPECT_EQ(nil, error) << "twice is no failure";
  [changed appendWithItem:nil error:nullptr];
  EXPECT_EQ("1@0 1@1 1@1 3@2 2@0 2@1 0@0 0@0 ", changes);
});

// A handler may end its own subscription, fail, and change the vector again.
const Cell handlerActs("observable.vector.handler.acts", [] {
  ObservableFolders folders = newFolders();
  __block int calls = 0;
  __block WRTEventRegistrationToken token = {};
  const auto handler = ^HRESULT(ObservableFolders sender, id<WRTIVectorChangedEventArgsBridge>) {
    ++calls;
    [sender removeVectorChangedWithToken:token error:nullptr];
    [vectorOf(sender) clearWithError:nullptr];
    return status::kFail;
  };
  token = [folders addVectorChangedWithHandler:handler error:nullptr];
  NSError *error = nil;
  [vectorOf(folders) appendWithItem:nil error:&error];
  EXPECT_EQ(nil, error) << "what a handler answers is no failure of the change";
  EXPECT_EQ(1, calls);
  EXPECT_EQ(0u, [vectorOf(folders) getSizeWithError:nullptr]);
});

/// A handler in C++, as another component would have it.
class MapHandler final : public MapChangedEventHandler<String, Int32> {
public:
  std::u16string seen;

  HRESULT WRT_ABI QueryInterface(const GUID *, void **) override { return kNoInterface; }
  uint32_t WRT_ABI AddRef() override { return 2; }
  uint32_t WRT_ABI Release() override { return 1; }
  HRESULT WRT_ABI Invoke(IObservableMap<String, Int32> *,
                         IMapChangedEventArgs<String> *event) override {
    int32_t kind = 0;
    StringHolder key;
    event->get_CollectionChange(&kind);
    event->get_Key(key.put());
    seen += static_cast<char16_t>(u'0' + kind);
    seen += key.view();
    seen += u' ';
    return status::kOk;
  }
};

// Observable maps have no members in the library; a component hears of every change.
const Cell maps("observable.map.every_change.normal", [] {
  const auto map = make<ObservableMap<String, Int32>>();
  MapHandler handler;
  WRTEventRegistrationToken token{};
  EXPECT_EQ(status::kOk, map->add_MapChanged(&handler, &token));
  uint8_t replaced = 0;
  const StringHolder key(u"key");
  map->Insert(key.get(), 1, &replaced);
  map->Insert(key.get(), 2, &replaced);
  EXPECT_EQ(status::kBounds, map->Remove(nullptr));
  map->Remove(key.get());
  map->Clear();
  EXPECT_EQ(u"1key 3key 2key 0 ", handler.seen);
  EXPECT_EQ(status::kOk, map->remove_MapChanged(token));
  map->Clear();
  EXPECT_EQ(u"1key 3key 2key 0 ", handler.seen);
});

// The property sets can be activated by name.
const Cell propertySets("observable.map.activated.normal", [] {
  for (const char16_t *name : {u"Windows.Foundation.Collections.PropertySet",
                               u"Windows.Foundation.Collections.ValueSet"}) {
    id set = [WRTValueSetBridge bridgeTransfer:WRTActivateInstance(name)];
    NSError *error = nil;
    WRTIUnknownRelease([set _WRTIMap__2_WRTHSTRING_WRTIInspectable_PWithError:&error]);
    const auto map = askFor<IMap<String, Inspectable>>(set);
    ASSERT_TRUE(map);
    uint8_t replaced = 1;
    EXPECT_EQ(status::kOk, map->Insert(nullptr, map.get(), &replaced));
    map->Clear();
    WRTIUnknownRelease([set _WRTIObservableMap__2_WRTHSTRING_WRTIInspectable_PWithError:&error]);
    WRTIUnknownRelease([set _WRTIPropertySetWithError:&error]);
    EXPECT_EQ(nil, error);
  }
});

} // namespace

} // namespace wrt::test
