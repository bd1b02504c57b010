/// What the cells of the generic families have in common.
#ifndef WRT_TESTS_FAMILIES_H
#define WRT_TESTS_FAMILIES_H

#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/implement/Implements.h"
#include "tests/support/Bridges.h"

#import <WRTObjcBridge/IMap.h>
#import <WRTObjcBridge/IVector.h>

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace wrt::test {

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

/// A declaration of `Interface` without its members, for objects that are only passed around.
template <class Interface>
struct Memberless : abi::IInspectable {
  static constexpr GUID kIid = Interface::kIid;
};

/// The component's own declaration of an interface, asked of the object: identifiers are computed
/// there by other code.
template <class Interface>
implement::ComPtr<Interface> askFor(id bridge) {
  const implement::ComPtr object(static_cast<abi::IInspectable *>([bridge inner]));
  return object ? object.template as<Interface>() : nullptr;
}

/// Sees that an empty vector of strings does what every one does, whoever made it.
void checkStrings(id<WRTIVector__1_WRTHSTRING_Bridge> vector);

/// Sees the same of an empty map of lists.
void checkLists(id<WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge> map);

/// An object that says it has `Interface`.
template <class Interface>
class StandIn final : public implement::Implements<Memberless<Interface>> {
public:
  /// Borrowed.
  Interface *interface() {
    return implement::interfaceCast<Interface>(static_cast<Memberless<Interface> *>(this));
  }
};

/// A bridge of `type`, autoreleased, for the operation that runs `work`.
template <class Result = void, class Progress = void, class Lambda>
id startedOperation(Class type, Lambda work) {
  implement::IAsync<Result, Progress> *operation = nullptr;
  EXPECT_EQ(status::kOk, (implement::startAsync<Result, Progress>(&operation, std::move(work))));
  return [type bridgeTransfer:operation];
}

} // namespace wrt::test

#endif
