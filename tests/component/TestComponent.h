#ifndef WRT_TESTS_TEST_COMPONENT_H
#define WRT_TESTS_TEST_COMPONENT_H

#if defined(__cplusplus)
extern "C" {
#endif

/// The next thing that reached the test component and was not asked for before, as in
/// `InPrimitive 7`, or null when there is none. Valid until the next call on this thread.
const char *WRTTestComponentNextCrossing(void);

#if defined(__cplusplus)
}
#endif

#endif
