#ifndef WRT_ARM_HOST_H
#define WRT_ARM_HOST_H

#if defined(_WIN32)
#define TEST_HOST __declspec(dllimport)
#else
#define TEST_HOST
#endif

/// What the emulator supplies to tests and doubles, or the native program around them.
extern "C" {

/// Records one check; a failed one is printed under `name`.
TEST_HOST void hostReport(const char *name, int passed);
/// Prints a line.
TEST_HOST void hostLog(const char *text);
/// Ends the run with a message.
[[noreturn]] TEST_HOST void hostEnd(const char *message);
}

#endif
