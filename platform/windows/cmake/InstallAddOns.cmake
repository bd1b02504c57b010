# What the kit has for libraries of bridges of one's own (wrt_add_bridges):
#
#   lib/cmake/WRTObjcBridge/   find_package(WRTObjcBridge)
#   lib/imports/               import libraries of the siblings and of Windows
#   lib/wrt_*/                 objects that the product does not export: marshalling code and start-up
#   share/WRTObjcBridge/       the declarations, and headers that are promised to nobody
#   toolchain/                 the two links with their scripts
#   tools/                     bridgegen and fixuptable, for this machine

set(detail share/WRTObjcBridge/detail)
install(FILES ${WRT_DECLARATIONS} DESTINATION share/WRTObjcBridge/declarations)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/core ${PROJECT_SOURCE_DIR}/marshal DESTINATION ${detail}
  FILES_MATCHING PATTERN "*.h" PATTERN "WRT*.h" EXCLUDE PATTERN test EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/include DESTINATION ${detail}/platform
  FILES_MATCHING PATTERN "*.h" PATTERN "*.inc" PATTERN WRTTypes.h EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/windows/bridge DESTINATION ${detail}/platform/windows)
foreach(folder IN ITEMS abi members)
  install(DIRECTORY ${PROJECT_BINARY_DIR}/${folder}/ DESTINATION ${detail}/${folder}
    FILES_MATCHING PATTERN "*.h")
endforeach()
install(DIRECTORY ${PROJECT_BINARY_DIR}/platform/ DESTINATION ${detail}/platform
  FILES_MATCHING PATTERN "*.platform.h" PATTERN CMakeFiles EXCLUDE PATTERN windows EXCLUDE PATTERN arm EXCLUDE)

install(FILES $<TARGET_OBJECTS:marshal> DESTINATION lib/wrt_marshal)
install(FILES $<TARGET_OBJECTS:wrt_arm_runtime> DESTINATION lib/wrt_arm_runtime)
install(FILES $<TARGET_OBJECTS:wrt_patcher> DESTINATION lib/wrt_patcher)
install(FILES ${WRT_ARM_IMPORTS} DESTINATION lib/imports)
install(PROGRAMS $<TARGET_FILE:bridgegen> $<TARGET_FILE:fixuptable> DESTINATION tools)
install(FILES ${PROJECT_SOURCE_DIR}/platform/windows/cmake/ArmDll.cmake DESTINATION toolchain/cmake)
install(PROGRAMS ${PROJECT_SOURCE_DIR}/platform/windows/link.sh
  ${PROJECT_SOURCE_DIR}/platform/windows/imported-data.sh DESTINATION toolchain)

set(package ${CMAKE_CURRENT_LIST_DIR}/package)
set(WRT_ADD_ON_DELEGATE_HEADER platform/windows/bridge/Delegate.h)
configure_file(${PROJECT_SOURCE_DIR}/cmake/package/WRTAddBridges.cmake.in
  ${PROJECT_BINARY_DIR}/package/WRTAddBridges.cmake @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/package/WRTAddBridges.cmake ${package}/WRTObjcBridgeConfig.cmake
  ${package}/WRTAddOnLibrary.cmake DESTINATION lib/cmake/WRTObjcBridge)
install(CODE "
  file(SHA256 \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin/WRTObjcBridge_zorvex.dll\" sum)
  file(WRITE \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/lib/cmake/WRTObjcBridge/product.sha256\" \"\${sum}\")")
