# Runs bridgegen over all declarations, once for all of them, into the build folder.
#
#   bridges                         the target that runs it
#   wrt_generated_abi               for what includes <abi/...> or <platform/...> headers
#   wrt_generated                   the same, and for the classes
#   WRT_CLASS_SOURCES               classes/*.mm, to be compiled into the library
#   WRT_CATALOGUE, WRT_SURFACE_DIGEST   the tables of all methods and of all classes
#   WRT_BRIDGE_EXPORTS              the names that WRTBridge_zorvex.dll has for the bridges
#
# The delegate factories and activation names go to the embedded platform through the global property
# WRT_GENERATED_PLATFORM_SOURCES.

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
set(platform_sources "")
foreach(file IN LISTS WRT_DECLARATIONS)
  get_filename_component(unit ${file} NAME_WLE)
  list(APPEND WRT_CLASS_SOURCES ${PROJECT_BINARY_DIR}/classes/${unit}.mm)
  list(APPEND platform_sources
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
list(APPEND outputs ${WRT_CLASS_SOURCES} ${platform_sources} ${WRT_CATALOGUE} ${WRT_SURFACE_DIGEST}
  ${WRT_BRIDGE_EXPORTS} ${PROJECT_BINARY_DIR}/include/WRTObjcBridge/WRTObjcBridge.h)

# For the test that compares this list with bridgegen's own.
set_property(GLOBAL PROPERTY WRT_GENERATED_OUTPUTS ${outputs})
set_property(GLOBAL PROPERTY WRT_DECLARATIONS ${WRT_DECLARATIONS})

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

set_property(GLOBAL APPEND PROPERTY WRT_GENERATED_PLATFORM_SOURCES ${platform_sources})
if(TARGET WRTBridge_zorvex)
  target_link_libraries(WRTBridge_zorvex PRIVATE wrt_generated_abi)
  add_dependencies(WRTBridge_zorvex bridges)
endif()
