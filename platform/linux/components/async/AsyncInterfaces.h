/// The interfaces of asynchronous operations and their handlers, for any result and progress (type
/// identifiers: Windows 10 SDK 10.0.16299.0, windows.foundation.idl and asyncinfo.h).
#ifndef WRT_COMPONENTS_ASYNC_INTERFACES_H
#define WRT_COMPONENTS_ASYNC_INTERFACES_H

#include "platform/linux/components/generic/Types.h"

#include <abi/Windows.Foundation.abi.h>
#include <type_traits>

namespace wrt::implement {

/// `AsyncStatus`.
inline constexpr int32_t kStarted = 0;
inline constexpr int32_t kCompleted = 1;
inline constexpr int32_t kCanceled = 2;
inline constexpr int32_t kError = 3;

/// The control interface that every operation has.
using abi::IAsyncInfo;

/// The interface of an operation with that result and progress; either may be `void`:
/// `IAsyncAction`, `IAsyncActionWithProgress<P>`, `IAsyncOperation<R>` or
/// `IAsyncOperationWithProgress<R, P>`.
template <class Result, class Progress>
struct IAsync;

/// What is called once, when the operation has ended.
template <class Result, class Progress>
struct CompletedHandler : abi::IUnknown {
  static constexpr GUID kIid = [] {
    using Kind = IAsync<Result, Progress>;
    if constexpr (requires { Kind::kPlainCompletedHandler; })
      return Kind::kPlainCompletedHandler;
    else
      return identifierOf(Kind::handlerSignature(Kind::kCompletedHandler).view());
  }();

  /// `operation` is borrowed.
  virtual HRESULT WRT_ABI Invoke(IAsync<Result, Progress> *operation, int32_t status) = 0;

protected:
  ~CompletedHandler() = default;
};

/// What is called on each report of progress.
template <class Result, class Progress>
struct ProgressHandler : abi::IUnknown {
  static constexpr GUID kIid = identifierOf(
      IAsync<Result, Progress>::handlerSignature(IAsync<Result, Progress>::kProgressHandler)
          .view());

  /// `operation` is borrowed.
  virtual HRESULT WRT_ABI Invoke(IAsync<Result, Progress> *operation, Abi<Progress> progress) = 0;

protected:
  ~ProgressHandler() = default;
};

/// `IAsyncAction`.
template <>
struct IAsync<void, void> : abi::IInspectable {
  static constexpr GUID kIid{
      0x5A648006, 0x843A, 0x4DA9, {0x86, 0x5B, 0x9D, 0x26, 0xE5, 0xDF, 0xAD, 0x7B}};
  static constexpr GUID kPlainCompletedHandler{
      0xA4ED5C81, 0x76C9, 0x40BD, {0x8B, 0xE6, 0xB1, 0xD9, 0x0F, 0xB2, 0x0A, 0xE7}};

  virtual HRESULT WRT_ABI put_Completed(CompletedHandler<void, void> *handler) = 0;
  virtual HRESULT WRT_ABI get_Completed(CompletedHandler<void, void> **handler) = 0;
  virtual HRESULT WRT_ABI GetResults() = 0;

protected:
  ~IAsync() = default;
};

/// `IAsyncActionWithProgress<Progress>`.
template <class Progress>
struct IAsync<void, Progress> : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<Progress>(
      {0x1F6DB258, 0xE803, 0x48A1, {0x95, 0x46, 0xEB, 0x73, 0x53, 0x39, 0x88, 0x84}});
  static constexpr GUID kIid = identifierOf(kSignature.view());
  static constexpr GUID kProgressHandler{
      0x6D844858, 0x0CFF, 0x4590, {0xAE, 0x89, 0x95, 0xA5, 0xA5, 0xC8, 0xB4, 0xB8}};
  static constexpr GUID kCompletedHandler{
      0x9C029F91, 0xCC84, 0x44FD, {0xAC, 0x26, 0x0A, 0x6C, 0x4E, 0x55, 0x52, 0x81}};
  static constexpr auto handlerSignature(const GUID &handler) {
    return instanceSignature<Progress>(handler);
  }

  virtual HRESULT WRT_ABI put_Progress(ProgressHandler<void, Progress> *handler) = 0;
  virtual HRESULT WRT_ABI get_Progress(ProgressHandler<void, Progress> **handler) = 0;
  virtual HRESULT WRT_ABI put_Completed(CompletedHandler<void, Progress> *handler) = 0;
  virtual HRESULT WRT_ABI get_Completed(CompletedHandler<void, Progress> **handler) = 0;
  virtual HRESULT WRT_ABI GetResults() = 0;

protected:
  ~IAsync() = default;
};

/// `IAsyncOperation<Result>`.
template <class Result>
struct IAsync<Result, void> : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<Result>(
      {0x9FC2B0BB, 0xE446, 0x44E2, {0xAA, 0x61, 0x9C, 0xAB, 0x8F, 0x63, 0x6A, 0xF2}});
  static constexpr GUID kIid = identifierOf(kSignature.view());
  static constexpr GUID kCompletedHandler{
      0xFCDCF02C, 0xE5D8, 0x4478, {0x91, 0x5A, 0x4D, 0x90, 0xB7, 0x4B, 0x83, 0xA5}};
  static constexpr auto handlerSignature(const GUID &handler) {
    return instanceSignature<Result>(handler);
  }

  virtual HRESULT WRT_ABI put_Completed(CompletedHandler<Result, void> *handler) = 0;
  virtual HRESULT WRT_ABI get_Completed(CompletedHandler<Result, void> **handler) = 0;
  virtual HRESULT WRT_ABI GetResults(Abi<Result> *result) = 0;

protected:
  ~IAsync() = default;
};

/// `IAsyncOperationWithProgress<Result, Progress>`.
template <class Result, class Progress>
struct IAsync : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<Result, Progress>(
      {0xB5D036D7, 0xE297, 0x498F, {0xBA, 0x60, 0x02, 0x89, 0xE7, 0x6E, 0x23, 0xDD}});
  static constexpr GUID kIid = identifierOf(kSignature.view());
  static constexpr GUID kProgressHandler{
      0x55690902, 0x0AAB, 0x421A, {0x87, 0x78, 0xF8, 0xCE, 0x50, 0x26, 0xD7, 0x58}};
  static constexpr GUID kCompletedHandler{
      0xE85DF41D, 0x6AA7, 0x46E3, {0xA8, 0xE2, 0xF0, 0x09, 0xD8, 0x40, 0xC6, 0x27}};
  static constexpr auto handlerSignature(const GUID &handler) {
    return instanceSignature<Result, Progress>(handler);
  }

  virtual HRESULT WRT_ABI put_Progress(ProgressHandler<Result, Progress> *handler) = 0;
  virtual HRESULT WRT_ABI get_Progress(ProgressHandler<Result, Progress> **handler) = 0;
  virtual HRESULT WRT_ABI put_Completed(CompletedHandler<Result, Progress> *handler) = 0;
  virtual HRESULT WRT_ABI get_Completed(CompletedHandler<Result, Progress> **handler) = 0;
  virtual HRESULT WRT_ABI GetResults(Abi<Result> *result) = 0;

protected:
  ~IAsync() = default;
};

/// The four by WinRT's names.
using IAsyncAction = IAsync<void, void>;
template <class Progress>
using IAsyncActionWithProgress = IAsync<void, Progress>;
template <class Result>
using IAsyncOperation = IAsync<Result, void>;
template <class Result, class Progress>
using IAsyncOperationWithProgress = IAsync<Result, Progress>;

// Slot layout and identifiers are pinned by one instance whose identifier is published.
static_assert(IAsyncOperation<String>::kIid ==
              GUID{0x3E1FE603, 0xF897, 0x5263, {0xB3, 0x28, 0x08, 0x06, 0x42, 0x6B, 0x8A, 0x79}});

} // namespace wrt::implement

#endif
