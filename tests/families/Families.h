/// What the cells of the generic families have in common.
#ifndef WRT_TESTS_FAMILIES_H
#define WRT_TESTS_FAMILIES_H

#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/implement/Implements.h"
#include "tests/support/Cell.h"
#include "tests/support/LogRecorder.h"
#include "tests/support/PlatformTrace.h"
#include "tests/support/ProbeObject.h"

#import <WRTObjcBridge/WRTInterfaceProxy.h>

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace wrt::test {

inline constexpr HRESULT kNoInterface = static_cast<HRESULT>(0x80004002); // E_NOINTERFACE

/// How long a cell waits for what should come soon.
inline std::chrono::milliseconds patience() {
  return runsForItsEnd() ? std::chrono::milliseconds(100) : std::chrono::seconds(30);
}

/// A door that opens once. Waiting for one that nobody opens fails the cell.
class Gate {
public:
  void open() {
    std::lock_guard lock(mutex_);
    open_ = true;
    opened_.notify_all();
  }
  void wait() {
    std::unique_lock lock(mutex_);
    EXPECT_TRUE(opened_.wait_for(lock, patience(), [this] { return open_; }))
        << "nobody opened the gate";
  }

private:
  std::mutex mutex_;
  std::condition_variable opened_;
  bool open_ = false;
};

/// Waits at the end of a cell until the pool has dropped what the cell's operations own.
struct PoolDrained {
  ~PoolDrained() { implement::waitForPool(); }
};

/// An error variable that holds something, as a caller's may from an earlier call.
inline NSError *staleErrorOfCaller() {
  return [NSError errorWithDomain:@"stale" code:1 userInfo:nil];
}

/// A declaration of `Interface` without its members, for objects that are only passed around.
template <class Interface>
struct Memberless : abi::IInspectable {
  static constexpr GUID kIid = Interface::kIid;
};

/// An object that says it has `Interface`.
template <class Interface>
class StandIn final : public implement::Implements<Memberless<Interface>> {
public:
  /// Borrowed.
  Interface *interface() {
    return implement::interfaceCast<Interface>(static_cast<Memberless<Interface> *>(this));
  }
};

/// A bridge of `type`, autoreleased, around a new object that lacks every interface.
inline id strangerOf(Class type) {
  ProbeObject &object = lasting<ProbeObject>();
  object.queryStatus = kNoInterface;
  return [type bridge:&object];
}

/// A bridge of `type`, autoreleased, for the operation that runs `work`.
template <class Result = void, class Progress = void, class Lambda>
id startedOperation(Class type, Lambda work) {
  implement::IAsync<Result, Progress> *operation = nullptr;
  EXPECT_EQ(status::kOk, (implement::startAsync<Result, Progress>(&operation, std::move(work))));
  return [type bridgeTransfer:operation];
}

} // namespace wrt::test

#endif
