# find_package(WRTObjcBridge) in a project that the kit's tool chain file is for gives wrt_add_bridges
# (WRTAddBridges.cmake), wrt_add_arm_dll (toolchain/cmake/ArmDll.cmake) and the target
# WRTObjcBridge::detail with what their code is compiled with.
get_filename_component(_wrt_kit "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
if(NOT CMAKE_SYSTEM_NAME STREQUAL "Windows" OR NOT CMAKE_OBJCXX_COMPILER_ID MATCHES Clang)
  set(WRTObjcBridge_FOUND FALSE)
  set(WRTObjcBridge_NOT_FOUND_MESSAGE
    "This kit is for Windows on ARM: configure with --toolchain ${_wrt_kit}/toolchain/toolchain.cmake and enable C, CXX and OBJCXX.")
  return()
endif()

# What it is linked with may not be on this machine.
execute_process(COMMAND "${_wrt_kit}/tools/fixuptable" --help
  RESULT_VARIABLE _wrt_status OUTPUT_QUIET ERROR_VARIABLE _wrt_errors)
if(NOT _wrt_status EQUAL 0)
  set(WRTObjcBridge_FOUND FALSE)
  set(WRTObjcBridge_NOT_FOUND_MESSAGE "The kit's fixuptable does not run here: ${_wrt_status} ${_wrt_errors}")
  return()
endif()

if(NOT TARGET WRTObjcBridge::detail)
  foreach(tool IN ITEMS bridgegen fixuptable)
    add_executable(${tool} IMPORTED)
    set_target_properties(${tool} PROPERTIES IMPORTED_LOCATION "${_wrt_kit}/tools/${tool}")
  endforeach()
  foreach(part IN ITEMS wrt_marshal wrt_arm_runtime wrt_patcher)
    file(GLOB _wrt_objects "${_wrt_kit}/lib/${part}/*")
    add_library(${part} OBJECT IMPORTED)
    set_target_properties(${part} PROPERTIES IMPORTED_OBJECTS "${_wrt_objects}")
  endforeach()
  add_library(WRTObjcBridge::detail INTERFACE IMPORTED)
  target_include_directories(WRTObjcBridge::detail INTERFACE "${_wrt_kit}/include"
    "${_wrt_kit}/share/WRTObjcBridge/detail" "${_wrt_kit}/share/WRTObjcBridge/detail/platform/include")
endif()
file(GLOB WRT_ARM_IMPORTS "${_wrt_kit}/lib/imports/*.lib")
set(_wrt_bridgegen "${_wrt_kit}/tools/bridgegen")
set(_wrt_declarations "${_wrt_kit}/share/WRTObjcBridge/declarations")
include("${_wrt_kit}/toolchain/cmake/ArmDll.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/WRTAddOnLibrary.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/WRTAddBridges.cmake")
