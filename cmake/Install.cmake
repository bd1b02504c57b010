# What `cmake --install` puts in place for applications on Linux:
#
#   lib/                       the library and the embedded platform, which find each other there
#   include/WRTObjcBridge/     the public headers, their module map, and `gnustep/`, what GNUstep's
#                              headers want besides
#   lib/cmake/WRTObjcBridge/   find_package(WRTObjcBridge)
#   lib/pkgconfig/             pkg-config wrtobjcbridge
#
# Nothing in there names a folder of the build or of the installation: the tree may be moved.
include(CMakePackageConfigHelpers)

set(WRT_INSTALLED_PLATFORM
  zorvex WRTLedger CrossPortability_zorvex WRTBridge_zorvex WRTBridgeUtil_zorvex)
set(WRT_INSTALLED_LIBRARIES WRTObjcBridge ${WRT_INSTALLED_PLATFORM})
set_target_properties(${WRT_INSTALLED_LIBRARIES} PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS ${WRT_INSTALLED_LIBRARIES} LIBRARY DESTINATION lib)

install(DIRECTORY ${PROJECT_BINARY_DIR}/include/WRTObjcBridge DESTINATION include
  FILES_MATCHING PATTERN "*.h")
install(FILES ${CMAKE_CURRENT_LIST_DIR}/package/module.modulemap DESTINATION include/WRTObjcBridge)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/linux/objc/include/objc
  DESTINATION include/WRTObjcBridge/gnustep)

list(JOIN WRT_OBJC_FLAGS " " WRT_OBJC_FLAGS_TEXT)
configure_file(${CMAKE_CURRENT_LIST_DIR}/package/WRTObjcBridgeConfig.cmake.in
  ${PROJECT_BINARY_DIR}/package/WRTObjcBridgeConfig.cmake @ONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/package/wrtobjcbridge.pc.in
  ${PROJECT_BINARY_DIR}/package/wrtobjcbridge.pc @ONLY)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/WRTObjcBridgeConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/WRTObjcBridgeConfig.cmake
  ${PROJECT_BINARY_DIR}/package/WRTObjcBridgeConfigVersion.cmake
  DESTINATION lib/cmake/WRTObjcBridge)
install(FILES ${PROJECT_BINARY_DIR}/package/wrtobjcbridge.pc DESTINATION lib/pkgconfig)
