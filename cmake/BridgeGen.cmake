# Runs bridgegen over all declarations, once for all of them, into the build folder.
#
#   bridges                         the target that runs it
#   wrt_generated_abi               for what includes <abi/...> or <platform/...> headers
#   wrt_generated                   the same, and for the classes
#   WRT_CLASS_SOURCES               classes/*.mm, to be compiled into the library
#   WRT_CATALOGUE, WRT_SURFACE_DIGEST   the tables of all methods and of all classes
#   WRT_BRIDGE_EXPORTS              the names that WRTBridge_zorvex.dll has for the bridges
#   WRT_PLATFORM_SOURCES        delegate factories and activation names, for the embedded platform
#   WRT_GENERATED_OUTPUTS       all that is made

file(GLOB WRT_DECLARATIONS CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/marshal/test/*.idl
  ${PROJECT_SOURCE_DIR}/generic/*.idl
  ${PROJECT_SOURCE_DIR}/catalogue/*/*.idl)

set(WRT_HAND_WRITTEN ${PROJECT_SOURCE_DIR}/core/classes.tsv)

# When the build is for another machine, bridgegen is still for this one.
if(NOT TARGET bridgegen)
  wrt_add_host_tools(wrt_generator ${PROJECT_SOURCE_DIR}/generator bridgegen)
endif()

set(outputs "")
set(WRT_CLASS_SOURCES "")
set(WRT_PLATFORM_SOURCES "")
foreach(file IN LISTS WRT_DECLARATIONS)
  get_filename_component(unit ${file} NAME_WLE)
  list(APPEND WRT_CLASS_SOURCES ${PROJECT_BINARY_DIR}/classes/${unit}.mm)
  list(APPEND WRT_PLATFORM_SOURCES
    ${PROJECT_BINARY_DIR}/platform/${unit}.delegates.mm
    ${PROJECT_BINARY_DIR}/platform/${unit}.names.cpp)
  list(APPEND outputs
    ${PROJECT_BINARY_DIR}/include/WRTObjcBridge/types/${unit}.h
    ${PROJECT_BINARY_DIR}/include/WRTObjcBridge/${unit}.h
    ${PROJECT_BINARY_DIR}/abi/${unit}.abi.h
    ${PROJECT_BINARY_DIR}/members/${unit}.members.h
    ${PROJECT_BINARY_DIR}/platform/${unit}.platform.h)
endforeach()
set(WRT_CATALOGUE ${PROJECT_BINARY_DIR}/catalogue.tsv)
set(WRT_SURFACE_DIGEST ${PROJECT_BINARY_DIR}/surface.digest)
set(WRT_BRIDGE_EXPORTS ${PROJECT_BINARY_DIR}/platform/bridge.exports)
list(APPEND outputs ${WRT_CLASS_SOURCES} ${WRT_PLATFORM_SOURCES} ${WRT_CATALOGUE} ${WRT_SURFACE_DIGEST}
  ${WRT_BRIDGE_EXPORTS} ${PROJECT_BINARY_DIR}/include/WRTObjcBridge/WRTObjcBridge.h)

set(WRT_GENERATED_OUTPUTS ${outputs})

# bridgegen leaves alone what would not change, and Ninja looks again at the times afterwards, so only
# what depends on a changed output is built.
add_custom_command(OUTPUT ${outputs}
  COMMAND bridgegen --output ${PROJECT_BINARY_DIR} --hand-written ${WRT_HAND_WRITTEN}
    ${WRT_DECLARATIONS}
  DEPENDS bridgegen ${WRT_HAND_WRITTEN} ${WRT_DECLARATIONS}
  COMMENT "Generating the bridges")
add_custom_target(bridges DEPENDS ${outputs})

add_library(wrt_generated_abi INTERFACE)
target_include_directories(wrt_generated_abi INTERFACE ${PROJECT_BINARY_DIR})
add_dependencies(wrt_generated_abi bridges)
add_library(wrt_generated INTERFACE)
target_link_libraries(wrt_generated INTERFACE wrt_generated_abi)
