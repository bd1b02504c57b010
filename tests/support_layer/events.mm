// Subscriptions, and the way back to a window's thread.

#include "platform/linux/components/collections/ObservableVector.h"
#include "tests/families/Families.h"

#import <WRTObjcBridge/IObservableVector.h>
#import <WRTObjcBridge/Windows.Foundation.Collections.h>
#import <WRTSupport/WRTSupport.h>
#include <abi/IObservableVector.abi.h>
#include <abi/Windows.Storage.abi.h>
#include <abi/Windows.UI.Core.abi.h>

#include <deque>
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
  abi::IObservableVector__1_WRTStorageFolder_P *vector = nullptr;
  makeObservableVector<Folder>(&vector);
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
      std::atomic<int> calls = 0;
      std::atomic<int> *const counter = &calls;
      WRTSubscription *held =
          WRTSubscribe(folders, VectorChanged, Handler, nullptr, ^HRESULT(id, id) {
            ++*counter;
            return 0;
          });
      std::thread other([held] { [held cancel]; });
      std::thread third([held] { [held cancel]; });
      for (int i = 0; i < 10; ++i)
        change(folders);
      other.join();
      third.join();
      const int before = calls;
      change(folders);
      EXPECT_EQ(before, calls);
    }
  }
});

/// A window's thread: what it is given, one after the other.
class Dispatcher final : public Implements<abi::ICoreDispatcher> {
public:
  Dispatcher() : thread_([this] { run(); }) {}
  ~Dispatcher() { stop(); }

  /// Runs what was given before, then refuses.
  void stop() {
    {
      std::lock_guard lock(mutex_);
      stopped_ = true;
      changed_.notify_all();
    }
    if (thread_.joinable())
      thread_.join();
  }
  std::thread::id id() const { return id_; }

  HRESULT WRT_ABI get_HasThreadAccess(unsigned char *) override { return status::kNotImplemented; }
  HRESULT WRT_ABI ProcessEvents(int) override { return status::kNotImplemented; }
  HRESULT WRT_ABI RunIdleAsync(abi::IdleDispatchedHandler *, abi::IAsyncAction **) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI RunAsync(int priority, abi::DispatchedHandler *handler,
                           abi::IAsyncAction **action) override {
    std::lock_guard lock(mutex_);
    if (stopped_ || priority != WRTCoreDispatcherPriorityNormal)
      return status::kClosed;
    work_.emplace_back(handler);
    changed_.notify_all();
    return startAsync<>(action, [](const Work<> &) { return status::kOk; });
  }

private:
  void run() {
    for (std::unique_lock lock(mutex_);;) {
      changed_.wait(lock, [this] { return stopped_ || !work_.empty(); });
      if (work_.empty())
        return;
      ComPtr<abi::DispatchedHandler> next = std::move(work_.front());
      work_.pop_front();
      lock.unlock();
      @autoreleasepool {
        next->Invoke();
        next.reset();
      }
      lock.lock();
    }
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<ComPtr<abi::DispatchedHandler>> work_;
  bool stopped_ = false;
  std::thread thread_;
  const std::thread::id id_ = thread_.get_id();
};

const Cell dispatched("support.dispatcher.all.normal", [] {
  PoolDrained drained;
  using Number = WRTIAsyncOperation__1_WRTUINT32_Bridge;
  auto window = make<Dispatcher>();
  const auto thread = window->id();
  WRTICoreDispatcherBridge *dispatcher = [WRTICoreDispatcherBridge bridge:window.get()];
  Gate gates[3];
  Gate *const done = gates;
  Number *operation =
      startedOperation<UInt32>([Number class], [](const Work<> &, uint32_t &result) {
        result = 17;
        return status::kOk;
      });
  WRTThenOn(dispatcher, operation, ^(unsigned result, NSError *failure) {
    EXPECT_EQ(thread, std::this_thread::get_id());
    EXPECT_EQ(17u, result);
    EXPECT_EQ(nil, failure);
    done[0].open();
  });
  gates[0].wait();
  WRTIAsyncActionBridge *failing = startedOperation<>(
      [WRTIAsyncActionBridge class], [](const Work<> &) { return status::kBounds; });
  WRTThenOn(dispatcher, failing, ^(NSError *failure) {
    EXPECT_EQ(thread, std::this_thread::get_id());
    EXPECT_EQ(status::kBounds, [failure code]);
    done[1].open();
  });
  gates[1].wait();

  ObservableFolders *folders = newFolders();
  const Handler handler = ^HRESULT(id<WRTIObservableVector__1_WRTStorageFolder_P_Bridge> sender,
                                   id<WRTIVectorChangedEventArgsBridge> event) {
    EXPECT_EQ(thread, std::this_thread::get_id());
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

  window->stop();
  __block int calls = 0;
  WRTThenOn(dispatcher, operation, ^(unsigned, NSError *failure) {
    EXPECT_EQ(status::kClosed, [failure code]);
    ++calls;
  });
  EXPECT_EQ(1, calls) << "told here when it cannot be told there";
});

} // namespace

} // namespace wrt::test
