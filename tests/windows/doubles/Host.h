#ifndef WRT_TESTS_HOST_H
#define WRT_TESTS_HOST_H

/// What the emulator supplies to tests and doubles.
extern "C" {

/// Records one check; a failed one is printed under `name`.
__attribute__((dllimport)) void testReport(const char *name, int passed);
/// Prints a line.
__attribute__((dllimport)) void testLog(const char *text);
/// Ends the run with a message.
[[noreturn]] __attribute__((dllimport)) void testEnd(const char *message);
}

#endif
