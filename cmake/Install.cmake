# What `cmake --install` puts in place for applications on Linux, in the folders of GNUInstallDirs:
#
#   lib/                       the library and the embedded platform, which find each other there
#   include/WRTObjcBridge/     the public headers, their module map, and `gnustep/`, what GNUstep's
#                              headers want besides
#   lib/cmake/WRTObjcBridge/   find_package(WRTObjcBridge)
#   lib/pkgconfig/             pkg-config wrtobjcbridge, wrtsupport
#   include/WRTSupport/        the application layer's headers and module map
#   include/WRTDebug/          what an application may ask while it is debugged
#   lib/wrtobjcbridge/         the tables of the trace and of the debuggers, and the debuggers' scripts
#
# Nothing in there names a folder of the build or of the installation: the tree may be moved.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)
foreach(folder IN ITEMS LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
    message(FATAL_ERROR "CMAKE_INSTALL_${folder} is \"${CMAKE_INSTALL_${folder}}\"; it has to be "
      "relative to the prefix, or else the installed tree could not be moved.")
  endif()
endforeach()

# The flags and libraries of Objective-C for those who use the library. `@catch` wants both kinds of
# exceptions switched on; clang warns of the second where no Objective-C is compiled.
set(flags ${WRT_OBJC_FLAGS} -fexceptions)
list(REMOVE_DUPLICATES flags)
add_library(wrt_application INTERFACE)
set_target_properties(wrt_application PROPERTIES EXPORT_NAME objc)
# The Config file adds where GNUstep's headers are found.
target_include_directories(wrt_application INTERFACE
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/WRTObjcBridge/gnustep>)
target_compile_options(wrt_application INTERFACE
  "$<$<OR:$<COMPILE_LANG_AND_ID:C,Clang>,$<COMPILE_LANG_AND_ID:CXX,Clang>,$<COMPILE_LANGUAGE:OBJC,OBJCXX>>:${flags}>"
  $<$<COMPILE_LANGUAGE:OBJC,OBJCXX>:-fobjc-exceptions>)
# CMake writes run paths for C and C++ alone.
target_link_options(wrt_application INTERFACE
  "$<$<LINK_LANGUAGE:OBJC,OBJCXX>:-Wl,-rpath,$<INSTALL_PREFIX>/${CMAKE_INSTALL_LIBDIR}>")
# GNUstep Base has block functions too; those of `zorvex` have to be found before them.
target_link_libraries(zorvex INTERFACE
  $<INSTALL_INTERFACE:-lgnustep-base> $<INSTALL_INTERFACE:-lobjc>)
target_link_libraries(wrt_application INTERFACE zorvex)
target_link_libraries(WRTObjcBridge INTERFACE $<INSTALL_INTERFACE:WRTObjcBridge::objc>)
# What <WRTObjcBridge/WRTOwnership.h> declares.
target_link_libraries(WRTObjcBridge INTERFACE
  $<INSTALL_INTERFACE:WRTObjcBridge::WRTBridge_zorvex>)

set(libraries WRTObjcBridge WRTSupport WRTTrace zorvex WRTLedger CrossPortability_zorvex
  WRTBridge_zorvex WRTBridgeUtil_zorvex)
# An application keeps running with a later library of the same major version (docs/stability.md).
set_target_properties(${libraries} PROPERTIES INSTALL_RPATH "$ORIGIN"
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
install(TARGETS ${libraries} wrt_application EXPORT WRTObjcBridge
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

install(FILES ${WRT_DEBUG_FILES} DESTINATION ${CMAKE_INSTALL_LIBDIR}/wrtobjcbridge)
install(FILES ${PROJECT_SOURCE_DIR}/platform/linux/ledger/WRTLedger.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/WRTDebug)
install(DIRECTORY ${PROJECT_BINARY_DIR}/include/WRTObjcBridge ${PROJECT_BINARY_DIR}/include/WRTSupport
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(FILES ${CMAKE_CURRENT_LIST_DIR}/package/module.modulemap
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/WRTObjcBridge)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/package/support.modulemap
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/WRTSupport RENAME module.modulemap)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/linux/objc/include/objc
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/WRTObjcBridge/gnustep)

include(InstallAddOns)

set(package ${PROJECT_BINARY_DIR}/package)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/WRTObjcBridge)
install(EXPORT WRTObjcBridge NAMESPACE WRTObjcBridge:: DESTINATION ${package_folder}
  FILE WRTObjcBridgeTargets.cmake)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/package/WRTObjcBridgeConfig.cmake.in
  ${package}/WRTObjcBridgeConfig.cmake INSTALL_DESTINATION ${package_folder}
  PATH_VARS CMAKE_INSTALL_BINDIR CMAKE_INSTALL_DATADIR CMAKE_INSTALL_LIBDIR
  NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
set(WRT_ADD_ON_DELEGATE_HEADER ${WRT_DELEGATE_HEADER})
foreach(script IN ITEMS WRTAddBridges.cmake WRTAddOnLibrary.cmake)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/package/${script}.in ${package}/${script} @ONLY)
endforeach()
write_basic_package_version_file(${package}/WRTObjcBridgeConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${package}/WRTObjcBridgeConfig.cmake ${package}/WRTObjcBridgeConfigVersion.cmake
  ${package}/WRTAddBridges.cmake ${package}/WRTAddOnLibrary.cmake
  DESTINATION ${package_folder})

list(APPEND flags --start-no-unused-arguments -fobjc-exceptions --end-no-unused-arguments)
list(JOIN flags " " WRT_APPLICATION_FLAGS)
file(RELATIVE_PATH WRT_PKG_CONFIG_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" WRT_PKG_CONFIG_TO_PREFIX "${WRT_PKG_CONFIG_TO_PREFIX}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/package/wrtobjcbridge.pc.in ${package}/wrtobjcbridge.pc @ONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/package/wrtsupport.pc.in ${package}/wrtsupport.pc @ONLY)
install(FILES ${package}/wrtobjcbridge.pc ${package}/wrtsupport.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
