#ifndef WRT_TESTS_WINE_COUNTS_H
#define WRT_TESTS_WINE_COUNTS_H

namespace wrt::test {

/// Prints the line that ends a test program's output and that run.sh adds up; gives the exit
/// status.
int reportCounts(int passed, int failed, int skipped);

} // namespace wrt::test

#endif
