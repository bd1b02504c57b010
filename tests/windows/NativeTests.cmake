find_package(GTest REQUIRED)

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
