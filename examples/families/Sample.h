#ifndef WRT_EXAMPLES_SAMPLE_H
#define WRT_EXAMPLES_SAMPLE_H

#if defined(__cplusplus)
extern "C" {
#endif

// Objects that WinRT classes would hand out, each +1, to be wrapped with `bridgeTransfer:`.

/// An `IAsyncOperationWithProgress<UInt32, UInt32>` that adds up the numbers up to `count` and
/// reports how far it has come, until it is canceled.
void *SampleAddUp(unsigned int count);
/// An empty `IVector<String>`.
void *SampleNewVector(void);
/// An empty `IMap<String, IVector<String>>`.
void *SampleNewMap(void);

#if defined(__cplusplus)
}
#endif

#endif
