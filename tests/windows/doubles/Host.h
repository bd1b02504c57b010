#ifndef WRT_TESTS_HOST_H
#define WRT_TESTS_HOST_H

#if defined(_WIN32)
#define TEST_HOST __declspec(dllimport)
#else
#define TEST_HOST
#endif

/// What the emulator supplies to tests and doubles, or the native program around them.
extern "C" {

/// Records one check; a failed one is printed under `name`.
TEST_HOST void testReport(const char *name, int passed);
/// Prints a line.
TEST_HOST void testLog(const char *text);
/// Ends the run with a message.
[[noreturn]] TEST_HOST void testEnd(const char *message);
/// Says that the test function that runs is to end with this message; it fails if it does not. Only
/// the emulator has it.
TEST_HOST void testExpectEnd(const char *message);
}

#endif
