# What `cmake --install` puts in place for applications on the target:
#
#   bin/            the image, its public symbols and the linker's map of it; wrtsmoke.exe, which tries it
#   lib/            its import library
#   include/        the public headers
#   toolchain/      the tool chain's file with what it takes from this folder
#   versions.txt    the Debian packages that the image was made from
#
# The tree may be moved.
install(FILES ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.dll ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.pdb
              ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.map
  DESTINATION bin)
install(FILES ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.lib DESTINATION lib)
install(DIRECTORY ${CMAKE_BINARY_DIR}/include/WRTObjcBridge DESTINATION include
  FILES_MATCHING PATTERN "*.h")
install(FILES ${PROJECT_SOURCE_DIR}/platform/windows/toolchain.cmake DESTINATION toolchain)
install(PROGRAMS ${PROJECT_SOURCE_DIR}/platform/windows/sysroot.sh DESTINATION toolchain)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/windows/include ${PROJECT_SOURCE_DIR}/platform/windows/imports
  DESTINATION toolchain)

# A program that loads the image and makes 20 calls (its classes may have been left out of a selection).
if(NOT WRT_SELECT)
  add_library(wrtsmoke_objects OBJECT ${PROJECT_SOURCE_DIR}/examples/smoke/Smoke.mm)
  target_link_libraries(wrtsmoke_objects PRIVATE wrt_options wrt_generated)
  wrt_add_arm_dll(wrtsmoke PROGRAM PATCHED ENTRY WRTProgramEntry OBJECTS wrtsmoke_objects
    LIBRARIES ${WRT_ARM_IMPORTS})
  install(FILES ${CMAKE_BINARY_DIR}/wrtsmoke.exe DESTINATION bin)
endif()

# Those that are installed, and those that are only unpacked, which tell their versions in their changes.
execute_process(COMMAND dpkg-query --show "--showformat=\${Package} \${Version}\\n" clang-19 lld-19 llvm-19
  OUTPUT_VARIABLE versions COMMAND_ERROR_IS_FATAL ANY)
foreach(package IN ITEMS libc++-19-dev mingw-w64-common)
  execute_process(
    COMMAND gzip -dc "${WRT_ARM_SYSROOT}/usr/share/doc/${package}/changelog.Debian.gz"
    COMMAND sed -n "1s/.*(\\(.*\\)).*/${package} \\1/p"
    OUTPUT_VARIABLE version COMMAND_ERROR_IS_FATAL ANY)
  string(APPEND versions "${version}")
endforeach()
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/versions.txt CONTENT "${versions}" @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/versions.txt DESTINATION .)
