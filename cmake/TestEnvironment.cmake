# `WRT_TEST_ENVIRONMENT`: what tests find in their environment. The suppressions name code that is not
# ours; each says why. The same stands in the build folder as `test-environment`, a setting a line.

set(suppressions ${PROJECT_SOURCE_DIR}/cmake/suppressions)
set(WRT_TEST_ENVIRONMENT
  "ASAN_OPTIONS=suppressions=${suppressions}/asan.supp:detect_stack_use_after_return=1:allocator_may_return_null=1"
  "LSAN_OPTIONS=suppressions=${suppressions}/lsan.supp:print_suppressions=0"
  "TSAN_OPTIONS=suppressions=${suppressions}/tsan.supp:allocator_may_return_null=1"
  "UBSAN_OPTIONS=suppressions=${suppressions}/ubsan.supp:print_stacktrace=1")
list(JOIN WRT_TEST_ENVIRONMENT "\n" environment)
file(WRITE ${PROJECT_BINARY_DIR}/test-environment "${environment}\n")
