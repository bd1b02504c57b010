#include "bench/FamilyRows.h"

#include "bench/Messages.h"

#include "bench/WrittenOutFamilies.h"
#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/components/collections/Map.h"
#include "platform/linux/components/collections/Vector.h"

#include <ClassReceiver.h>
#include <WRTBridge.h>
#include <WRTBridgeUtil.h>
#import <WRTObjcBridge/IAsyncOperation.h>
#import <WRTObjcBridge/IIterable.h>
#import <WRTObjcBridge/IIterator.h>
#import <WRTObjcBridge/IMap.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.Media.Devices.h>
#include <abi/Windows.Media.Devices.abi.h>
#include <platform/Windows.Foundation.platform.h>

#include <semaphore>

namespace wrt::bench {

namespace {

using namespace implement;

using Region = types::RegionOfInterest;
using Operation = IAsyncOperation<UInt32>;
constexpr uint32_t kMany = 1000;
constexpr int kRegions = 100;
/// Awaiting an operation: a bridge for it, the handler, which reads the result of the bridge that
/// it gets, and the end of the delegate.
constexpr int kAwait =
    kBridge + kCall + kArgument + kCleanupList + kCleanup + kDelegate + kBridgeArgument + kCall;

/// Something to iterate over.
class Thing final : public Implements<abi::IInspectable> {};

/// What all rows work on; lives to the end of the process.
struct Fixture {
  ComPtr<Vector<String>> vector =
      make<Vector<String>>(Items<String>(kMany, StringHolder(u"seventeen characters or so")));
  ComPtr<Vector<Region>> regions = make<Vector<Region>>();
  ComPtr<Map<String, Ref<IVector<String>>>> map = make<Map<String, Ref<IVector<String>>>>();
  WRTIVector__1_WRTHSTRING_Bridge *vectorBridge =
      [[WRTIVector__1_WRTHSTRING_Bridge bridge:vector->identity()] retain];
  WrittenVector *vectorWritten = [[WrittenVector bridge:vector->identity()] retain];
  WRTIIterable__1_WRTRegionOfInterest_P_Bridge *regionsBridge =
      [[WRTIIterable__1_WRTRegionOfInterest_P_Bridge bridge:regions->identity()] retain];
  WrittenIterable *regionsWritten = [[WrittenIterable bridge:regions->identity()] retain];
  WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge *mapBridge =
      [[WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge bridge:map->identity()] retain];
  WrittenMap *mapWritten = [[WrittenMap bridge:map->identity()] retain];
  NSString *key = @"key 50";

  Fixture() {
    const auto region = make<Thing>();
    for (int i = 0; i < kRegions; ++i) {
      regions->Append(reinterpret_cast<abi::IRegionOfInterest *>(region->identity()));
      uint8_t replaced = 0;
      const std::u16string_view digits = u"0123456789";
      const std::u16string name =
          std::u16string(u"key ") + digits[static_cast<size_t>(i) / 10] + digits[i % 10];
      map->Insert(StringHolder(name).get(), vector.get(), &replaced);
    }
  }
};

Fixture &fixture() {
  static Fixture instance;
  return instance;
}

/// The interface of a component's object, asked for as a member does, without messages.
template <class Interface>
ComPtr<Interface> held(void *object) {
  ComPtr<Interface> result;
  WRTIUnknownQueryInterface(object, &Interface::kIid, result.putVoid());
  return result;
}

template <class Iterable, class Iterator>
void walk(Iterable *iterable) {
  Iterator *iterator = static_cast<Iterator *>([iterable firstWithError:nullptr]);
  for (bool more = [iterator getHasCurrentWithError:nullptr]; more;
       more = [iterator moveNextWithError:nullptr])
    [iterator getCurrentWithError:nullptr];
}

/// An operation (+1) that has completed already.
Operation *completed() {
  Operation *operation = nullptr;
  completedAsync<UInt32>(&operation, 5);
  return operation;
}

/// An operation (+1) whose work has nothing to do.
Operation *started() {
  Operation *operation = nullptr;
  startAsync<UInt32>(&operation, [](const Work<> &, uint32_t &result) {
    result = 5;
    return status::kOk;
  });
  return operation;
}

/// Sets a handler that reads the result, and waits until it was called.
template <class Bridge>
void await(Class type, Operation *operation) {
  // Outlives the call that releases it.
  static std::binary_semaphore done(0);
  std::binary_semaphore *const signal = &done;
  Bridge *bridge = [type bridgeTransfer:operation];
  [bridge
      setCompletedWithHandler:^HRESULT(id result, int) {
        [static_cast<Bridge *>(result) getResultsWithError:nullptr];
        signal->release();
        return 0;
      }
                        error:nullptr];
  done.acquire();
}

void awaitBridge(Operation *operation) {
  using Bridge = WRTIAsyncOperation__1_WRTUINT32_Bridge;
  await<Bridge>(WRT_CLASS(WRTIAsyncOperation__1_WRTUINT32_Bridge), operation);
}

void awaitWritten(Operation *operation) {
  await<WrittenOperation>(WRT_CLASS(WrittenOperation), operation);
}

/// The same without Objective-C.
void awaitAlone(Operation *started) {
  struct Handler final : CompletedHandler<UInt32, void> {
    std::binary_semaphore done{0};
    HRESULT WRT_ABI QueryInterface(const GUID *, void **) override { return status::kNoInterface; }
    uint32_t WRT_ABI AddRef() override { return 2; }
    uint32_t WRT_ABI Release() override { return 1; }
    HRESULT WRT_ABI Invoke(Operation *operation, int32_t) override {
      uint32_t value = 0;
      held<Operation>(operation)->GetResults(&value);
      done.release();
      return status::kOk;
    }
  };
  // The operation may let go of the handler after it was called.
  static Handler handler;
  const auto operation = ComPtr<Operation>::adopt(started);
  held<Operation>(operation.get())->put_Completed(&handler);
  handler.done.acquire();
}

} // namespace

std::vector<Row> familyRows() {
  return {
      {"vector GetAt", kCall, [] { [fixture().vectorBridge getAtWithIndex:500 error:nullptr]; },
       [] { [fixture().vectorWritten getAtWithIndex:500 error:nullptr]; },
       [] {
         HSTRING handle = nullptr;
         held<IVector<String>>(fixture().vector->identity())->GetAt(500, &handle);
         [WRTHSTRINGToCFString(handle) release];
         WRTHSTRINGRelease(handle);
       }},
      {"vector, 1000 by GetMany", kCall + kCleanupList + kCleanup + 3 + kMany,
       [] { [fixture().vectorBridge getManyWithStartIndex:0 capacity:kMany error:nullptr]; },
       [] { [fixture().vectorWritten getManyWithStartIndex:0 capacity:kMany error:nullptr]; },
       [] {
         auto *block = static_cast<HSTRING *>(WRTTaskMemAlloc(kMany * sizeof(HSTRING)));
         uint32_t actual = 0;
         held<IVector<String>>(fixture().vector->identity())->GetMany(0, kMany, block, &actual);
         for (uint32_t i = 0; i < actual; ++i) {
           [WRTHSTRINGToCFString(block[i]) release];
           WRTHSTRINGRelease(block[i]);
         }
         WRTTaskMemFree(block);
       }},
      {"iteration over 100", (kCall + kBridge) + kCall + kRegions * (kCall + kBridge + kCall),
       [] {
         walk<WRTIIterable__1_WRTRegionOfInterest_P_Bridge,
              WRTIIterator__1_WRTRegionOfInterest_P_Bridge>(fixture().regionsBridge);
       },
       [] { walk<WrittenIterable, WrittenIterator>(fixture().regionsWritten); },
       [] {
         ComPtr<IIterator<Region>> iterator;
         held<IIterable<Region>>(fixture().regions->identity())->First(iterator.put());
         uint8_t more = 0;
         for (iterator->get_HasCurrent(&more); more; iterator->MoveNext(&more)) {
           ComPtr<abi::IRegionOfInterest> current;
           iterator->get_Current(current.put());
         }
       }},
      {"map lookup", kCall + kArgument + kCleanupList + kCleanup + kBridge,
       [] { [fixture().mapBridge lookupWithKey:fixture().key error:nullptr]; },
       [] { [fixture().mapWritten lookupWithKey:fixture().key error:nullptr]; },
       [] {
         HSTRING key = WRTHSTRINGFromCFString(fixture().key);
         ComPtr<IVector<String>> value;
         held<IMap<String, Ref<IVector<String>>>>(fixture().map->identity())
             ->Lookup(key, value.put());
         WRTHSTRINGRelease(key);
       }},
      {"box + unbox Int32", 2 + kBridge + kCast + kCall,
       [] {
         id boxed = [WRT_CLASS(WRTPropertyValueBridge) createInt32WithValue:5 error:nullptr];
         [[WRT_CLASS(WRTIPropertyValueBridge) cast:boxed] getInt32WithError:nullptr];
       },
       [] {
         id boxed = [WRT_CLASS(WrittenValue) createInt32WithValue:5 error:nullptr];
         [[WRT_CLASS(WrittenValue) cast:boxed] getInt32WithError:nullptr];
       },
       [] {
         WRTHSTRINGHeader header;
         HSTRING name = nullptr;
         WRTHSTRINGCreateReference(WRTPropertyValueClassString,
                                   WRTHSTRINGLength(WRTPropertyValueClassString), &header, &name);
         ComPtr<abi::IPropertyValueStatics> statics;
         WRTGetActivationFactory(name, &abi::IPropertyValueStatics::kIid, statics.putVoid());
         ComPtr<abi::IInspectable> boxed;
         statics->CreateInt32(5, boxed.put());
         int value = 0;
         held<abi::IPropertyValue>(boxed.get())->GetInt32(&value);
       }},
      {"completed operation", kAwait, [] { awaitBridge(completed()); },
       [] { awaitWritten(completed()); }, [] { awaitAlone(completed()); }},
      {"completion latency", kAwait, [] { awaitBridge(started()); },
       [] { awaitWritten(started()); }, [] { awaitAlone(started()); }},
  };
}

} // namespace wrt::bench
