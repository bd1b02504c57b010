find_package(GTest REQUIRED)
set(WRT_UNOPTIMIZED OFF)

set(patcher ${PROJECT_SOURCE_DIR}/platform/windows/patcher)

# What the assembler makes of every MOVW and MOVT.
find_program(WRT_LLVM_MC llvm-mc-19 REQUIRED)
find_program(WRT_LLVM_OBJCOPY llvm-objcopy-19 REQUIRED)
set(encodings ${CMAKE_CURRENT_BINARY_DIR}/MoveEncodings)
add_custom_command(OUTPUT ${encodings}.bin
  COMMAND ${WRT_LLVM_MC} -triple=thumbv7-linux-gnueabi -filetype=obj
          ${CMAKE_CURRENT_SOURCE_DIR}/patcher/MoveEncodings.s -o ${encodings}.o
  COMMAND ${WRT_LLVM_OBJCOPY} -O binary -j .text ${encodings}.o ${encodings}.bin
  DEPENDS patcher/MoveEncodings.s VERBATIM)

add_executable(windows_patcher_tests patcher/TestProcess.cpp patcher/FixupPassTest.cpp
  patcher/MovePairTest.cpp patcher/ConstantStringPassTest.cpp patcher/ImageRegistrationTest.cpp
  ${encodings}.bin)
target_compile_definitions(windows_patcher_tests PRIVATE WRT_MOVE_ENCODINGS="${encodings}.bin")
target_include_directories(windows_patcher_tests PRIVATE ${patcher})
target_link_libraries(windows_patcher_tests PRIVATE wrt_options GTest::gtest_main)
add_test(NAME windows.patcher COMMAND windows_patcher_tests)

# The fuzzer, and a short run with a fixed seed. Longer runs are started by hand.
if(NOT WRT_SANITIZE)
  add_executable(windows_fixup_fuzzer patcher/TestProcess.cpp patcher/FixupPassFuzzer.cpp)
  target_include_directories(windows_fixup_fuzzer PRIVATE ${patcher})
  target_compile_options(windows_fixup_fuzzer PRIVATE -fsanitize=fuzzer,address,undefined
    -fno-sanitize-recover=all)
  target_link_options(windows_fixup_fuzzer PRIVATE -fsanitize=fuzzer,address,undefined)
  target_link_libraries(windows_fixup_fuzzer PRIVATE wrt_options)
  add_test(NAME windows.patcher.fuzz
    COMMAND windows_fixup_fuzzer -seed=1 -runs=20000 -max_len=256 -verbosity=0)
endif()

# The sources of the product and the tests of the emulated run on i386, natively and under sanitizers:
# the same Objective-C ABI and the same 32-bit layouts as the product's, in another object format.
if(NOT WRT_SANITIZE)
  enable_language(ASM)
  set(doubles ${PROJECT_SOURCE_DIR}/platform/arm/doubles)
  file(GLOB i386_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/core/*.mm
    ${PROJECT_SOURCE_DIR}/marshal/*.mm ${doubles}/zorvex/*.mm ${doubles}/zorvex/*.cpp
    ${doubles}/bridge/*.cpp ${doubles}/generated/*.cpp ${doubles}/util/*.mm ${doubles}/log/*.mm arm/*.mm)
  # What is written in terms of the catalogue needs all of it.
  list(REMOVE_ITEM i386_sources ${PROJECT_SOURCE_DIR}/core/WRTBufferConversions.mm)
  set(factories ${CMAKE_CURRENT_BINARY_DIR}/Factories.cpp)
  add_custom_command(OUTPUT ${factories}
    COMMAND ${CMAKE_COMMAND} -DEXPORTS=${WRT_BRIDGE_EXPORTS} -DRESULT=${factories}
            -P ${doubles}/generated/Factories.cmake
    DEPENDS ${WRT_BRIDGE_EXPORTS} ${doubles}/generated/Factories.cmake VERBATIM)
  set(generated ${PROJECT_BINARY_DIR}/classes/test.mm ${PROJECT_BINARY_DIR}/platform/test.names.cpp)
  set_source_files_properties(${generated} PROPERTIES GENERATED ON)
  add_executable(windows_i386_tests ${i386_sources} ${doubles}/zorvex/MessageSendI386.S ${factories}
    ${generated} i386/Main.cpp)
  add_dependencies(windows_i386_tests bridges)
  target_compile_features(windows_i386_tests PRIVATE cxx_std_20)
  target_compile_definitions(windows_i386_tests PRIVATE WRT_BUILDING_BRIDGE)
  target_include_directories(windows_i386_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}
    ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/platform/include ${PROJECT_BINARY_DIR}
    ${PROJECT_BINARY_DIR}/include)
  target_include_directories(windows_i386_tests SYSTEM PRIVATE
    ${PROJECT_SOURCE_DIR}/platform/windows/include)
  set(i386 -m32 -fsanitize=address,undefined -fno-sanitize-recover=all)
  target_compile_options(windows_i386_tests PRIVATE ${i386} -g -O1 -fno-omit-frame-pointer
    $<$<COMPILE_LANGUAGE:CXX,OBJCXX>:-fno-exceptions -fno-rtti>
    # vptr needs type information, which there is none of; function takes interface tables, whose
    # functions take the object as what it is, for mistakes.
    -fno-sanitize=vptr,function
    $<$<COMPILE_LANGUAGE:OBJCXX>:-std=c++20 -fobjc-runtime=ios-7.0 -fblocks -fno-objc-exceptions
      -Wno-incomplete-implementation -Wno-nonnull>)
  target_link_options(windows_i386_tests PRIVATE ${i386})
  add_test(NAME windows.i386 COMMAND windows_i386_tests)
endif()
