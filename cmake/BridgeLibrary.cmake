# The library: core, marshalling code and the generated classes.

add_library(bridge_classes OBJECT ${WRT_CLASS_SOURCES})
target_link_libraries(bridge_classes PRIVATE wrt_library_code wrt_generated)

if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
  wrt_add_arm_dll(WRTObjcBridge OUTPUT_NAME WRTObjcBridge_zorvex PATCHED
    OBJECTS core core_buffers marshal bridge_classes LIBRARIES ${WRT_ARM_IMPORTS})
else()
  add_library(WRTObjcBridge SHARED
    $<TARGET_OBJECTS:core> $<TARGET_OBJECTS:core_buffers> $<TARGET_OBJECTS:marshal>
    $<TARGET_OBJECTS:bridge_classes>)
  set_target_properties(WRTObjcBridge PROPERTIES
    OUTPUT_NAME WRTObjcBridge_zorvex LINKER_LANGUAGE OBJCXX)
  # What uses the library finds its headers beside it.
  target_include_directories(WRTObjcBridge INTERFACE $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>)
  target_link_libraries(WRTObjcBridge
    PUBLIC $<BUILD_INTERFACE:wrt_objc>
    PRIVATE WRTBridge_zorvex WRTBridgeUtil_zorvex CrossPortability_zorvex)
  add_dependencies(WRTObjcBridge bridges)
endif()
