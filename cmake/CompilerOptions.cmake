# What every target is compiled with: `wrt_options` for all code, `wrt_objc` for Objective-C code and
# what links it.

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_OBJCXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_SYSTEM_NAME STREQUAL "Windows")
  # CMake knows these for C and C++ alone.
  foreach(language OBJC OBJCXX)
    set(CMAKE_SHARED_LIBRARY_RUNTIME_${language}_FLAG "-Wl,-rpath,")
    set(CMAKE_SHARED_LIBRARY_RUNTIME_${language}_FLAG_SEP ":")
    set(CMAKE_EXECUTABLE_RUNTIME_${language}_FLAG "-Wl,-rpath,")
    set(CMAKE_EXECUTABLE_RUNTIME_${language}_FLAG_SEP ":")
    set(CMAKE_SHARED_LIBRARY_RPATH_LINK_${language}_FLAG "-Wl,-rpath-link,")
    set(CMAKE_EXECUTABLE_RPATH_LINK_${language}_FLAG "-Wl,-rpath-link,")
    set(CMAKE_SHARED_LIBRARY_SONAME_${language}_FLAG "-Wl,-soname,")
  endforeach()
endif()

include(Warnings)
set(WRT_SANITIZE "" CACHE STRING "Sanitizers to build with, as in -fsanitize=")

add_library(wrt_options INTERFACE)
target_compile_features(wrt_options INTERFACE cxx_std_20)
target_compile_options(wrt_options INTERFACE ${WRT_WARNINGS})
if(NOT CMAKE_SYSTEM_NAME STREQUAL "Windows")
  # The newer format is more than Debian's valgrind can read.
  target_compile_options(wrt_options INTERFACE $<$<CONFIG:RelWithDebInfo>:-gdwarf-4>)
endif()
target_include_directories(wrt_options INTERFACE
  ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/platform/include ${PROJECT_BINARY_DIR}/include)
if(WRT_SANITIZE)
  # What is behind an interface pointer need not be a C++ object, and each side of an interface has
  # types of its own for its functions.
  target_compile_options(wrt_options INTERFACE -fsanitize=${WRT_SANITIZE} -fno-sanitize=vptr,function
    -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(wrt_options INTERFACE -fsanitize=${WRT_SANITIZE})
  # Tests run once on what takes longer to compile than to run; who searches for hours says -O1. Reports
  # need lines, not variables.
  set(WRT_SANITIZED_LEVEL -O0 CACHE STRING "How far to optimize what is built with sanitizers")
  set(level ${WRT_SANITIZED_LEVEL} -g1)
endif()
# Tests are built often and run briefly: their folders set the variable, where what is tested is not
# compiled with them.
define_property(TARGET PROPERTY WRT_UNOPTIMIZED INITIALIZE_FROM_VARIABLE WRT_UNOPTIMIZED)
target_compile_options(wrt_options INTERFACE
  $<IF:$<BOOL:$<TARGET_PROPERTY:WRT_UNOPTIMIZED>>,-O0,${level}>)
option(WRT_COVERAGE "Count what runs, for llvm-cov" OFF)
if(WRT_COVERAGE)
  # Not optimized: it is run once, and every branch is that of the source.
  target_compile_options(wrt_options INTERFACE
    -fprofile-instr-generate -fcoverage-mapping -O0 -g0)
  target_link_options(wrt_options INTERFACE -fprofile-instr-generate)
endif()

add_library(wrt_objc INTERFACE)
target_link_libraries(wrt_objc INTERFACE wrt_options)
if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
  set(WRT_OBJC_FLAGS -fblocks -fobjc-runtime=ios-7.0)
else()
  set(WRT_OBJC_FLAGS -fblocks -fobjc-runtime=gcc -fconstant-string-class=NSConstantString)
  find_path(WRT_GNUSTEP_INCLUDE Foundation/Foundation.h PATHS /usr/include/GNUstep REQUIRED)
  # Beside the headers of the GCC that the compiler uses.
  execute_process(COMMAND ${CMAKE_OBJC_COMPILER} -print-file-name=include/objc/objc.h
                  OUTPUT_VARIABLE objc_header OUTPUT_STRIP_TRAILING_WHITESPACE)
  cmake_path(GET objc_header PARENT_PATH objc_folder)
  find_path(WRT_OBJC_INCLUDE objc/objc.h PATHS ${objc_folder}/.. REQUIRED)
  target_include_directories(wrt_objc SYSTEM INTERFACE
    ${WRT_GNUSTEP_INCLUDE} ${WRT_OBJC_INCLUDE}
    ${PROJECT_SOURCE_DIR}/platform/linux/objc/include)
  # GNUstep Base exports block functions of its own; those of `zorvex` have to be found before them.
  # `zorvex` itself is an Objective-C library too.
  target_link_libraries(wrt_objc INTERFACE
    $<$<NOT:$<STREQUAL:$<TARGET_PROPERTY:NAME>,zorvex>>:zorvex> -lgnustep-base -lobjc)
endif()
target_compile_options(wrt_objc INTERFACE ${WRT_OBJC_FLAGS})

# The library's own code: it throws nothing and keeps no type information. On Linux it knows of
# exceptions all the same, since those of applications may pass through.
add_library(wrt_library_code INTERFACE)
target_link_libraries(wrt_library_code INTERFACE wrt_objc)
if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
  target_compile_options(wrt_library_code INTERFACE -fno-exceptions -fno-rtti)
else()
  target_compile_options(wrt_library_code INTERFACE -fexceptions -fobjc-exceptions -fno-rtti)
  option(WRT_RELEASE_STRING_RESULTS
    "Release the handles of string results, which the product leaves to WinRT" OFF)
  if(WRT_RELEASE_STRING_RESULTS)
    # Tests expect other leftovers then.
    target_compile_definitions(wrt_options INTERFACE WRT_RELEASE_STRING_RESULTS)
  endif()
endif()
target_compile_definitions(wrt_library_code INTERFACE WRT_BUILDING_BRIDGE)
