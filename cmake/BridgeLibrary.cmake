# The library: core, marshalling code and the generated classes.

# The product's classes are compiled as one file: the compiler repeats in every file the selectors,
# encodings and root protocols that it mentions, and the linker does not merge them.
set(class_sources ${WRT_CLASS_SOURCES})
if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
  list(TRANSFORM class_sources REPLACE "^${PROJECT_BINARY_DIR}/(.+)$" "#include \"\\1\"")
  list(JOIN class_sources "\n" includes)
  set(class_sources ${PROJECT_BINARY_DIR}/Classes.mm)
  file(GENERATE OUTPUT ${class_sources} CONTENT "${includes}\n")
  # Some of the headers say of each pointer whether it may be null, and then the classes would have to.
  set_source_files_properties(${class_sources} PROPERTIES COMPILE_OPTIONS -Wno-nullability-completeness)
endif()
add_library(bridge_classes OBJECT ${class_sources})
target_link_libraries(bridge_classes PRIVATE wrt_library_code wrt_generated)
if(NOT CMAKE_SYSTEM_NAME STREQUAL "Windows")
  # What every generated unit begins with, read once.
  target_precompile_headers(bridge_classes PRIVATE <Foundation/Foundation.h>
    ${PROJECT_SOURCE_DIR}/marshal/Accessor.h ${PROJECT_SOURCE_DIR}/marshal/Adapter.h
    ${PROJECT_SOURCE_DIR}/marshal/Call.h ${PROJECT_SOURCE_DIR}/marshal/FilledArray.h
    ${PROJECT_SOURCE_DIR}/marshal/Inspectable.h)
endif()

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
