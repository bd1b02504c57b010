# Adds the test `headers`. The compiler's flags are those of an application: the target's.

set(WRT_HEADER_WARNINGS
  -Weverything -Werror
  # The headers are for C99 and C++11 and what came after.
  -Wno-c++98-compat-pedantic
  # The names of generic instantiations have two underscores in the middle (WRTIVector__1_...).
  -Wno-reserved-identifier
  # The GNU runtime wants instance variables where the class is declared.
  -Wno-objc-interface-ivars
  # _HRESULT_DEFINED is how winnt.h says that it has declared HRESULT.
  -Wno-reserved-macro-identifier)

if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
  wrt_add_host_tools(wrt_header_tests ${CMAKE_CURRENT_LIST_DIR} headertests)
  separate_arguments(flags UNIX_COMMAND
    "--target=${WRT_ARM_TARGET} ${WRT_ARM_CXX} ${WRT_ARM_HEADERS} ${WRT_ARM_OBJC} -fobjc-arc")
else()
  add_subdirectory(${CMAKE_CURRENT_LIST_DIR})
  set(flags ${WRT_OBJC_FLAGS} -isystem ${WRT_GNUSTEP_INCLUDE} -isystem ${WRT_OBJC_INCLUDE}
    -isystem ${PROJECT_SOURCE_DIR}/platform/linux/objc/include)
endif()

add_test(NAME headers
  COMMAND headertests ${PROJECT_BINARY_DIR}/include ${CMAKE_OBJC_COMPILER} ${flags}
    ${WRT_HEADER_WARNINGS})
