// Subscriptions, and the way back to a window's thread.

#include "platform/linux/components/collections/ObservableVector.h"
#include "tests/families/Families.h"

#import <WRTObjcBridge/IObservableVector.h>
#import <WRTObjcBridge/Windows.Foundation.Collections.h>
#import <WRTSupport/WRTSupport.h>
#include <abi/Windows.Storage.abi.h>
#include <abi/Windows.UI.Core.abi.h>

#include <thread>

namespace wrt::test {

namespace {

using namespace implement;

using Folder = types::StorageFolder;
using FolderVector = WRTIVector__1_WRTStorageFolder_P_Bridge;
using ObservableFolders = WRTIObservableVector__1_WRTStorageFolder_P_Bridge;
using Handler = HRESULT (^)(id<WRTIObservableVector__1_WRTStorageFolder_P_Bridge>,
                            id<WRTIVectorChangedEventArgsBridge>);

ObservableFolders *newFolders() {
  IObservableVector<Folder> *const vector = make<ObservableVector<Folder>>().detach();
  return [ObservableFolders bridgeTransfer:vector];
}

void change(ObservableFolders *folders) { [[FolderVector cast:folders] clearWithError:nullptr]; }

// Called while somebody holds the subscription; then the handler and what it captures are gone.
const Cell subscription("support.subscription.all.normal", [] {
  __block int calls = 0;
  NSError *error = staleError();
  ObservableFolders *folders = newFolders();
  WRTSubscription *held = nil;
  const auto captive = std::make_shared<int>();
  @autoreleasepool {
    held = [WRTSubscribe(folders, VectorChanged, Handler, &error,
                         ^HRESULT(id<WRTIObservableVector__1_WRTStorageFolder_P_Bridge> sender,
                                  id<WRTIVectorChangedEventArgsBridge>) {
                           (void)captive;
                           EXPECT_EQ([folders inner], [sender inner]);
                           ++calls;
                           return 0;
                         }) retain];
  }
  EXPECT_EQ(nil, error);
  change(folders);
  EXPECT_EQ(1, calls);
  EXPECT_EQ(2, captive.use_count());
  [held release];
  change(folders);
  EXPECT_EQ(1, calls);
  EXPECT_EQ(1, captive.use_count());

  held = WRTSubscribe(folders, VectorChanged, Handler, &error, ^HRESULT(id, id) {
    ++calls;
    return 0;
  });
  EXPECT_TRUE([held isActive]);
  [held cancel];
  [held cancel];
  EXPECT_FALSE([held isActive]);
  change(folders);
  EXPECT_EQ(1, calls);

  const Handler nothing = ^HRESULT(id, id) {
    return 0;
  };
  for (ObservableFolders *wrong :
       {static_cast<ObservableFolders *>(nil),
        static_cast<ObservableFolders *>(strangerOf([ObservableFolders class]))})
    EXPECT_FAILS(wrong ? kNoInterface : status::kPointer,
                 WRTSubscribe(wrong, VectorChanged, Handler, &failure, nothing));
});

const Cell cancelInHandler("support.subscription.handler.cancels", [] {
  __block WRTSubscription *held = nil;
  __block int calls = 0;
  ObservableFolders *folders = newFolders();
  @autoreleasepool {
    held = [WRTSubscribe(folders, VectorChanged, Handler, nullptr, ^HRESULT(id, id) {
      ++calls;
      [held release]; // the last reference
      return 0;
    }) retain];
  }
  change(folders);
  change(folders);
  EXPECT_EQ(1, calls);
});

// Cancelled on one thread while it is called on another.
const Cell cancelElsewhere("support.subscription.other_threads.normal", [] {
  for (int round = 0; round < 50; ++round) {
    @autoreleasepool {
      ObservableFolders *folders = newFolders();
      const auto calls = std::make_shared<std::atomic<int>>(0);
      WRTSubscription *held =
          WRTSubscribe(folders, VectorChanged, Handler, nullptr, ^HRESULT(id, id) {
            ++*calls;
            return 0;
          });
      std::thread other([held] { [held cancel]; });
      std::thread third([held] { [held cancel]; });
      for (int i = 0; i < 10; ++i)
        change(folders);
      other.join();
      third.join();
      const int before = *calls;
      change(folders);
      EXPECT_EQ(before, *calls);
    }
  }
});

/// Whether this thread is doing what the dispatcher below was given.
thread_local bool isOfWindow = false;

/// Has the pool do what it is given.
class Dispatcher final : public Implements<abi::ICoreDispatcher> {
public:
  /// Whether everything is refused.
  bool isStopped = false;

  HRESULT WRT_ABI get_HasThreadAccess(unsigned char *) override { return status::kNotImplemented; }
  HRESULT WRT_ABI ProcessEvents(int) override { return status::kNotImplemented; }
  HRESULT WRT_ABI RunIdleAsync(abi::IdleDispatchedHandler *, abi::IAsyncAction **) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI RunAsync(int priority, abi::DispatchedHandler *handler,
                           abi::IAsyncAction **action) override {
    if (isStopped || priority != WRTCoreDispatcherPriorityNormal)
      return status::kClosed;
    return startAsync<>(action, [given = ComPtr(handler)](const Work<> &) {
      @autoreleasepool {
        isOfWindow = true;
        given->Invoke();
        isOfWindow = false;
      }
      return status::kOk;
    });
  }
};

const Cell dispatched("support.dispatcher.all.normal", [] {
  PoolDrained drained;
  using Number = WRTIAsyncOperation__1_WRTUINT32_Bridge;
  auto window = make<Dispatcher>();
  WRTICoreDispatcherBridge *dispatcher = [WRTICoreDispatcherBridge bridge:window.get()];
  Gate gates[3];
  Gate *const done = gates;
  Number *operation =
      startedOperation<UInt32>([Number class], [](const Work<> &, uint32_t &result) {
        result = 17;
        return status::kOk;
      });
  WRTThenOn(dispatcher, operation, ^(unsigned result, NSError *failure) {
    EXPECT_TRUE(isOfWindow);
    EXPECT_EQ(17u, result);
    EXPECT_EQ(nil, failure);
    done[0].open();
  });
  gates[0].wait();
  WRTIAsyncActionBridge *failing = startedOperation<>(
      [WRTIAsyncActionBridge class], [](const Work<> &) { return status::kBounds; });
  WRTThenOn(dispatcher, failing, ^(NSError *failure) {
    EXPECT_TRUE(isOfWindow);
    EXPECT_EQ(status::kBounds, [failure code]);
    done[1].open();
  });
  gates[1].wait();

  ObservableFolders *folders = newFolders();
  const Handler handler = ^HRESULT(id<WRTIObservableVector__1_WRTStorageFolder_P_Bridge> sender,
                                   id<WRTIVectorChangedEventArgsBridge> event) {
    EXPECT_TRUE(isOfWindow);
    EXPECT_EQ([folders inner], [sender inner]);
    EXPECT_NE(nil, event);
    done[2].open();
    return 0;
  };
  WRTSubscription *held =
      WRTSubscribe(folders, VectorChanged, Handler, nullptr, WRTOn(dispatcher, handler));
  change(folders);
  gates[2].wait();
  [held cancel];

  waitForPool();
  window->isStopped = true;
  __block int calls = 0;
  WRTThenOn(dispatcher, operation, ^(unsigned, NSError *failure) {
    EXPECT_EQ(status::kClosed, [failure code]);
    EXPECT_FALSE(isOfWindow);
    ++calls;
  });
  EXPECT_EQ(1, calls) << "told here when it cannot be told there";
});

} // namespace

} // namespace wrt::test
