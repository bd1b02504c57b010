# What `cmake --install` puts in place for applications on the target:
#
#   bin/            the image, its public symbols and the linker's map of it
#   lib/            its import library
#   include/        the public headers
#   toolchain/      the tool chain's file with what it takes from this folder
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
