#ifndef WRT_COMPONENTS_ASYNC_FAMILIES_H
#define WRT_COMPONENTS_ASYNC_FAMILIES_H

#include "platform/linux/components/generic/Types.h"

#include <abi/Windows.Foundation.abi.h>

namespace wrt::implement {

namespace detail {

/// The interfaces of operations with that result and progress.
template <class Result, class Progress>
struct AsyncFamily {
  using Operation = IAsyncOperationWithProgress<Result, Progress>;
  using Completed = AsyncOperationWithProgressCompletedHandler<Result, Progress>;
  using Reported = AsyncOperationProgressHandler<Result, Progress>;
};

template <class Result>
struct AsyncFamily<Result, void> {
  using Operation = IAsyncOperation<Result>;
  using Completed = AsyncOperationCompletedHandler<Result>;
};

template <class Progress>
struct AsyncFamily<void, Progress> {
  using Operation = IAsyncActionWithProgress<Progress>;
  using Completed = AsyncActionWithProgressCompletedHandler<Progress>;
  using Reported = AsyncActionProgressHandler<Progress>;
};

template <>
struct AsyncFamily<void, void> {
  using Operation = abi::IAsyncAction;
  using Completed = abi::AsyncActionCompletedHandler;
};

} // namespace detail

/// The interface of an operation with that result and progress; either may be `void`.
template <class Result, class Progress>
using IAsync = typename detail::AsyncFamily<Result, Progress>::Operation;

/// What is called once, when the operation has ended.
template <class Result, class Progress>
using CompletedHandler = typename detail::AsyncFamily<Result, Progress>::Completed;

/// What is called on each report of progress.
template <class Result, class Progress>
using ProgressHandler = typename detail::AsyncFamily<Result, Progress>::Reported;

} // namespace wrt::implement

#endif
