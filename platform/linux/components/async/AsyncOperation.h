/// Asynchronous operations for components. A member that returns one starts it with a lambda, which
/// runs on the thread pool:
///
///     HRESULT WRT_ABI ReadAsync(abi::IBuffer *buffer, uint32_t count, ...,
///                               abi::IAsyncOperationWithProgress__2_... **operation) override {
///       return startAsync<Ref<abi::IBuffer>, UInt32>(
///           operation,
///           [self = ComPtr(this), buffer = ComPtr(buffer), count](
///               const Work<UInt32> &work, ComPtr<abi::IBuffer> &result) -> HRESULT {
///             for (uint32_t done = 0; done < count; done += ...) {
///               if (work.isCanceled())
///                 return status::kAbort;
///               ...
///               work.report(done);
///             }
///             result = buffer;
///             return status::kOk;
///           });
///     }
///
/// The first template argument is the result's type, the second the progress's (Types.h), each
/// `void` or left out when there is none. The lambda
///   - gets `const Work<Progress> &`, or `const Work<> &`, and, if there is a result, the place for
///     it (`Stored<Result> &`: a number, a `StringHolder`, a `ComPtr`);
///   - answers the operation's outcome: a negative status makes it fail, anything else complete. An
///     exception makes it fail too (`E_OUTOFMEMORY` for `std::bad_alloc`, `E_FAIL` for others);
///   - must be copyable, and own what it uses: it may outlive the call and even the component. It
///     is destroyed before the completion handler is called.
/// After a cancellation the outcome no longer matters.
///
/// The out-parameter may have the generated declaration of the interface or the one of
/// the families (Types.h); identifiers that differ do not compile.
///
/// Results that are there already: `completedAsync<UInt32>(operation, 17)`, `failedAsync<UInt32>(
/// operation, status::kBounds)`.
#ifndef WRT_COMPONENTS_ASYNC_OPERATION_H
#define WRT_COMPONENTS_ASYNC_OPERATION_H

#include "platform/linux/components/async/AsyncState.h"
#include "platform/linux/components/async/ThreadPool.h"
#include "platform/linux/components/generic/InterfaceCast.h"
#include "platform/linux/implement/Implements.h"
#include "platform/linux/memory/Allocation.h"

#include <functional>
#include <new>
#include <optional>

namespace wrt::implement {

/// What an operation's work sees of it; valid while the work runs.
template <class Progress = void>
class Work {
public:
  explicit Work(std::stop_token token, std::function<void(Abi<Progress>)> report)
      : token_(std::move(token)), report_(std::move(report)) {}

  /// Whether the caller wants the operation to stop.
  bool isCanceled() const { return token_.stop_requested(); }
  /// The same for `std::stop_callback` and `std::condition_variable_any`.
  const std::stop_token &token() const { return token_; }
  /// Tells the progress handler, if there is one and the operation has not ended, before it
  /// returns. `progress` is borrowed.
  void report(Abi<Progress> progress) const { report_(progress); }

private:
  std::stop_token token_;
  std::function<void(Abi<Progress>)> report_;
};

template <>
class Work<void> {
public:
  explicit Work(std::stop_token token) : token_(std::move(token)) {}

  bool isCanceled() const { return token_.stop_requested(); }
  const std::stop_token &token() const { return token_; }

private:
  std::stop_token token_;
};

namespace detail {

/// The place for a result; nothing when there is none.
template <class Result>
struct ResultPlace {
  Stored<Result> value{};
};
template <>
struct ResultPlace<void> {};

/// What the object behind an operation has whatever its interface: control and result.
template <class Result, class Progress>
class AsyncControl : public Implements<IAsync<Result, Progress>, abi::IAsyncInfo> {
public:
  HRESULT WRT_ABI get_Id(uint32_t *id) override { return state_.copyId(id); }
  HRESULT WRT_ABI get_Status(int32_t *status) override { return state_.copyStatus(status); }
  HRESULT WRT_ABI get_ErrorCode(HRESULT *errorCode) override {
    return state_.copyErrorCode(errorCode);
  }
  HRESULT WRT_ABI Cancel() override { return state_.cancel(); }
  HRESULT WRT_ABI Close() override {
    const HRESULT status = state_.close();
    if (status >= 0)
      forget();
    return status;
  }

  HRESULT WRT_ABI put_Completed(CompletedHandler<Result, Progress> *handler) override {
    return state_.setHandler(operation(), reinterpret_cast<AsyncState::Handler *>(handler));
  }
  HRESULT WRT_ABI get_Completed(CompletedHandler<Result, Progress> **handler) override {
    return state_.copyHandler(reinterpret_cast<AsyncState::Handler **>(handler));
  }

  /// The work ended like that, with the result `place`.
  void finish(HRESULT outcome, ResultPlace<Result> place) {
    state_.finish(operation(), outcome, [&] { std::swap(place_, place); });
  }

protected:
  IAsync<Result, Progress> *operation() { return this; }
  /// Drops the result.
  void forget() {
    ResultPlace<Result> old; // dropped outside of the lock
    state_.exclusively([&](bool) { std::swap(place_, old); });
  }

  AsyncState state_;
  ResultPlace<Result> place_;
};

/// Adds `GetResults`.
template <class Result, class Progress>
class AsyncResults : public AsyncControl<Result, Progress> {
public:
  HRESULT WRT_ABI GetResults(Abi<Result> *result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = Abi<Result>{};
    return this->state_.withResult([&] { return Result::giveOut(this->place_.value, result); });
  }
};

template <class Progress>
class AsyncResults<void, Progress> : public AsyncControl<void, Progress> {
public:
  HRESULT WRT_ABI GetResults() override {
    return this->state_.withResult([] { return status::kOk; });
  }
};

/// Adds the progress handler.
template <class Result, class Progress>
class AsyncObject final : public AsyncResults<Result, Progress> {
public:
  using Handler = ProgressHandler<Result, Progress>;

  /// May be set anew at any time; null ends the reports. Once the operation has ended there is
  /// nothing to report, and nothing is kept.
  HRESULT WRT_ABI put_Progress(Handler *handler) override {
    ComPtr<Handler> changed(handler); // what was there is dropped outside of the lock
    return this->state_.ifOpen([&](bool isRunning) {
      if (isRunning)
        std::swap(handler_, changed);
      return status::kOk;
    });
  }
  HRESULT WRT_ABI get_Progress(Handler **handler) override {
    if (handler == nullptr)
      return status::kPointer;
    *handler = nullptr;
    return this->state_.ifOpen([&](bool) { return handler_.copyTo(handler); });
  }

  Work<Progress> work() {
    return Work<Progress>(this->state_.token(), [this](Abi<Progress> progress) {
      ComPtr<Handler> handler;
      this->state_.exclusively([&](bool isRunning) {
        if (isRunning)
          handler = handler_;
      });
      if (handler)
        handler->Invoke(this->operation(), progress);
    });
  }

  /// As `AsyncControl::finish`; there will be no more reports.
  void finish(HRESULT outcome, ResultPlace<Result> place) {
    ComPtr<Handler> old;
    this->state_.exclusively([&](bool) { std::swap(handler_, old); });
    old.reset();
    AsyncResults<Result, Progress>::finish(outcome, std::move(place));
  }

private:
  ComPtr<Handler> handler_;
};

template <class Result>
class AsyncObject<Result, void> final : public AsyncResults<Result, void> {
public:
  Work<> work() { return Work<>(this->state_.token()); }
};

/// Runs `lambda` and makes a status of its exceptions.
template <class Lambda, class... Arguments>
HRESULT guarded(Lambda &lambda, Arguments &...arguments) {
  const memory::FailuresAreCaught guard;
  try {
    return lambda(arguments...);
  } catch (const std::bad_alloc &) {
    return status::kOutOfMemory;
  } catch (...) {
    return status::kFail;
  }
}

} // namespace detail

/// Starts an operation: `lambda` runs on the thread pool. `*operation` is +1.
template <class Result = void, class Progress = void, class Declared, class Lambda>
HRESULT startAsync(Declared **operation, Lambda lambda) {
  using Operation = detail::AsyncObject<Result, Progress>;
  if (operation == nullptr)
    return status::kPointer;
  const ComPtr<Operation> object = make<Operation>();
  runOnPool([object, lambda = std::optional<Lambda>(std::move(lambda))]() mutable {
    detail::ResultPlace<Result> place;
    const auto work = object->work();
    HRESULT outcome = status::kAbort;
    if (work.isCanceled())
      ; // canceled before it began
    else if constexpr (std::is_void_v<Result>)
      outcome = detail::guarded(*lambda, work);
    else
      outcome = detail::guarded(*lambda, work, place.value);
    lambda.reset();
    object->finish(outcome, std::move(place));
  });
  return handOut<IAsync<Result, Progress>>(object, operation);
}

namespace detail {

template <class Result, class Progress, class Declared>
HRESULT endedAsync(Declared **operation, HRESULT outcome, ResultPlace<Result> place) {
  const auto object = make<AsyncObject<Result, Progress>>();
  object->finish(outcome, std::move(place));
  return handOut<IAsync<Result, Progress>>(object, operation);
}

} // namespace detail

/// An operation whose answer costs about as much as a system call, less than a change of threads:
/// `lambda` is that of `startAsync` without the `Work`, and has run when this returns.
template <class Result, class Declared, class Lambda>
HRESULT answerAsync(Declared **operation, Lambda lambda) {
  if (operation == nullptr)
    return status::kPointer;
  detail::ResultPlace<Result> place;
  const HRESULT outcome = detail::guarded(lambda, place.value);
  return detail::endedAsync<Result, void>(operation, outcome, std::move(place));
}

/// An operation that has completed with `result`; `*operation` is +1.
template <class Result, class Progress = void, class Declared>
HRESULT completedAsync(Declared **operation, Stored<Result> result) {
  return detail::endedAsync<Result, Progress>(operation, status::kOk, {std::move(result)});
}

/// An operation that has failed with `failure`, a negative status; `*operation` is +1.
template <class Result = void, class Progress = void, class Declared>
HRESULT failedAsync(Declared **operation, HRESULT failure) {
  return detail::endedAsync<Result, Progress>(operation, failure, {});
}

} // namespace wrt::implement

#endif
