# Tool chain of the product: Thumb-2 code for Windows on ARMv7, with clang, lld and the headers that
# sysroot.sh unpacks. Programs for the target are never linked by CMake itself: cmake/ArmDll.cmake does
# that, because the fixup table takes two links.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ARM)

# What the compiler and the linker call the architecture.
set(WRT_ARM_TARGET thumbv7-unknown-windows-gnu)
set(WRT_MACHINE arm)
foreach(language C CXX ASM OBJC OBJCXX)
  set(CMAKE_${language}_COMPILER_TARGET ${WRT_ARM_TARGET})
endforeach()
# Full paths: CMake does not look for Objective-C compilers by itself.
find_program(WRT_CLANG clang-19 REQUIRED)
find_program(WRT_CLANGXX clang++-19 REQUIRED)
foreach(language C OBJC ASM)
  set(CMAKE_${language}_COMPILER ${WRT_CLANG})
endforeach()
foreach(language CXX OBJCXX)
  set(CMAKE_${language}_COMPILER ${WRT_CLANGXX})
endforeach()
set(CMAKE_AR llvm-ar-19 CACHE FILEPATH "")
set(CMAKE_RANLIB llvm-ranlib-19 CACHE FILEPATH "")
# There are no resources; CMake's Windows files ask for a resource compiler all the same.
set(CMAKE_RC_COMPILER llvm-windres-19)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(WRT_ARM_SYSROOT "${CMAKE_BINARY_DIR}/sysroot" CACHE PATH "Where the target's headers are unpacked")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES WRT_ARM_SYSROOT)
execute_process(COMMAND "${CMAKE_CURRENT_LIST_DIR}/sysroot.sh" "${WRT_ARM_SYSROOT}"
                RESULT_VARIABLE result ERROR_VARIABLE message)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The target's headers cannot be unpacked:\n${message}")
endif()

string(JOIN " " WRT_ARM_HEADERS
  "-isystem ${CMAKE_CURRENT_LIST_DIR}/include"
  "-isystem ${WRT_ARM_SYSROOT}/usr/share/mingw-w64/include")
# -fno-exceptions and -fno-rtti: nothing is thrown on the target and no support library is linked.
# -funwind-tables: each function that saves its return address has a record for Windows' unwinder.
# -Os: with -Oz the compiler makes room on the stack by pushing registers whose slots it then
# overwrites, and the records say that these are to be restored.
# -Werror=global-constructors: the initializer tables have start-up's own entries and no others.
string(JOIN " " WRT_ARM_CODE
  "-Os -fno-exceptions -funwind-tables"
  "-ffunction-sections -fno-stack-protector -fno-ident -faddrsig")
string(JOIN " " WRT_ARM_CXX
  "-nostdinc++ -isystem ${WRT_ARM_SYSROOT}/usr/lib/llvm-19/include/c++/v1"
  "-fno-rtti -fno-threadsafe-statics -Werror=global-constructors")
# The Objective-C ABI of the runtime in zorvex.dll.
set(WRT_ARM_OBJC "-fobjc-runtime=ios-7.0 -fblocks -fno-objc-exceptions -fno-objc-arc")

set(CMAKE_C_FLAGS_INIT "${WRT_ARM_CODE} ${WRT_ARM_HEADERS}")
set(CMAKE_CXX_FLAGS_INIT "${WRT_ARM_CODE} ${WRT_ARM_CXX} ${WRT_ARM_HEADERS}")
set(CMAKE_OBJC_FLAGS_INIT "${CMAKE_C_FLAGS_INIT} ${WRT_ARM_OBJC}")
set(CMAKE_OBJCXX_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT} ${WRT_ARM_OBJC}")
# No -O and no -g from a build type: the product has one form.
foreach(language C CXX OBJC OBJCXX)
  foreach(type DEBUG RELEASE RELWITHDEBINFO MINSIZEREL)
    set(CMAKE_${language}_FLAGS_${type} "" CACHE STRING "")
  endforeach()
endforeach()

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
