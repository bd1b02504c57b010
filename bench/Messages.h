/// What a call has to send, by what it is made of. Messages that only the embedded platform sends
/// for itself are in the figures of the platform.
#ifndef WRT_BENCH_MESSAGES_H
#define WRT_BENCH_MESSAGES_H

namespace wrt::bench {

/// An interface accessor and the two queries behind it, the instance's and the root class's.
inline constexpr int kQuery = 3;
/// The application's message and the query for the member's interface.
inline constexpr int kCall = 1 + kQuery;
/// An object argument: retained and released.
inline constexpr int kArgument = 2;
/// The clean-up list: allocated, initialised and released; its enumerator asked for, retained,
/// released, and asked for one batch and for the end.
inline constexpr int kCleanupList = 3 + 3 + 2;
/// Another batch of clean-ups.
inline constexpr int kBatch = 1;
/// A clean-up: its block added, and the copy released.
inline constexpr int kCleanup = 2;
/// A bridge for a result: asked for, allocated, initialised along two classes, autoreleased, and
/// deallocated along the second.
inline constexpr int kBridge = 6;
/// An object made by default activation: allocated, initialised, asked for its class, which
/// activates it, initialised along two classes, and released and deallocated along the second.
inline constexpr int kCreation = 8;
/// A cast to another class: asked for, the object retained, asked for its class and for what it
/// wraps, released; and a bridge.
inline constexpr int kCast = 5 + kBridge;
/// A delegate: the adapter released by the member and later by the delegate.
inline constexpr int kDelegate = 2;
/// A string that a delegate's block gets: autoreleased, retained and released.
inline constexpr int kStringArgument = 3;
/// A bridge that a delegate's block gets.
inline constexpr int kBridgeArgument = kBridge + 2;

} // namespace wrt::bench

#endif
