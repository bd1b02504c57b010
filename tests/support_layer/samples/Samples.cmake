# Makes a program of the samples in docs/application.md: `WRT_SAMPLES` has a function for each.
file(READ ${PROJECT_SOURCE_DIR}/docs/application.md text)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/docs/application.md)
set(WRT_SAMPLES "")
set(WRT_SAMPLE_CALLS "")
set(count 0)
string(FIND "${text}" "```objectivec\n" start)
while(NOT start EQUAL -1)
  math(EXPR start "${start} + 14")
  string(SUBSTRING "${text}" ${start} -1 text)
  string(FIND "${text}" "```\n" end)
  string(SUBSTRING "${text}" 0 ${end} sample)
  math(EXPR count "${count} + 1")
  string(APPEND WRT_SAMPLES "static void sample${count}(WRTStorageFolderBridge *folder) {\n"
    "  NSError *error = nil;\n  WRTCoreDispatcherBridge *dispatcher = nil;\n"
    "  (void)folder, (void)error, (void)dispatcher;\n${sample}}\n\n")
  string(APPEND WRT_SAMPLE_CALLS "  sample${count}(folder);\n")
  string(SUBSTRING "${text}" ${end} -1 text)
  string(FIND "${text}" "```objectivec\n" start)
endwhile()
configure_file(${CMAKE_CURRENT_LIST_DIR}/samples.m.in ${CMAKE_CURRENT_BINARY_DIR}/samples.m @ONLY)
add_executable(support_samples ${CMAKE_CURRENT_BINARY_DIR}/samples.m)
target_link_libraries(support_samples PRIVATE WRTSupport wrt_objc)
add_test(NAME support_samples COMMAND support_samples)
# The handles of string results stay, as they do; the cells of the layer look for other leaks.
set(environment ${WRT_TEST_ENVIRONMENT})
list(TRANSFORM environment APPEND ":detect_leaks=0" REGEX "^ASAN_OPTIONS=")
set_tests_properties(support_samples PROPERTIES ENVIRONMENT "${environment}")
