# Adds the tests `install`, and `docs`, which uses what has been installed. What is built with sanitizers is not for others.
if(NOT WRT_SANITIZE)
  find_program(WRT_PKG_CONFIG NAMES pkg-config pkgconf REQUIRED)
  add_test(NAME install
    COMMAND ${CMAKE_COMMAND}
      -D BUILD=${PROJECT_BINARY_DIR} -D SOURCE=${PROJECT_SOURCE_DIR}
      -D COMPILER=${CMAKE_OBJC_COMPILER} -D COMPILER_CXX=${CMAKE_OBJCXX_COMPILER}
      -D PKG_CONFIG=${WRT_PKG_CONFIG} -D COMPONENT=$<TARGET_FILE:test_component>
      -P ${CMAKE_CURRENT_LIST_DIR}/RunInstallTest.cmake)
  set_tests_properties(install PROPERTIES FIXTURES_SETUP installed)
endif()
# The documents speak of build/linux, which the preset linux-debug does not make.
if(NOT WRT_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  add_test(NAME docs COMMAND ${PROJECT_SOURCE_DIR}/tests/docs/run.sh ${PROJECT_SOURCE_DIR}
    ${PROJECT_BINARY_DIR} "${PROJECT_BINARY_DIR}/install-test/moved to here")
  set_tests_properties(docs PROPERTIES FIXTURES_REQUIRED installed)
endif()
