# Runs bridgegen over all declarations, once for all of them, into the build folder. What it makes:
# BridgeOutputs.cmake.
#
#   bridges                         the target that runs it
#   wrt_generated_abi               for what includes <abi/...> or <platform/...> headers
#   wrt_generated                   the same, and for the classes
#
# WRT_DELEGATE_HEADER and WRT_COMPONENT_HEADER, if set, are what the delegate factories and the
# families for components include.

set(WRT_HAND_WRITTEN ${PROJECT_SOURCE_DIR}/core/classes.tsv)

# When the build is for another machine, bridgegen is still for this one: that of WRT_TOOLS_OF, or one of its own.
if(NOT TARGET bridgegen)
  wrt_add_host_tools(wrt_generator ${PROJECT_SOURCE_DIR}/generator bridgegen)
endif()

set(options --hand-written ${WRT_HAND_WRITTEN})
if(WRT_DELEGATE_HEADER)
  list(APPEND options --delegate-header ${WRT_DELEGATE_HEADER})
endif()
if(WRT_COMPONENT_HEADER)
  list(APPEND options --component-header ${WRT_COMPONENT_HEADER})
endif()

# What core/ itself is written with comes besides.
if(WRT_SELECT)
  foreach(name IN LISTS WRT_SELECT ITEMS Windows.Storage.Streams.Buffer
      Windows.Storage.Streams.InMemoryRandomAccessStream
      Windows.Storage.Streams.IRandomAccessStreamWithContentType
      Windows.Storage.Streams.RandomAccessStreamReference)
    list(APPEND options --select ${name})
  endforeach()
endif()

# bridgegen leaves alone what would not change, and Ninja looks again at the times afterwards, so only
# what depends on a changed output is built.
add_custom_command(OUTPUT ${WRT_GENERATED_OUTPUTS}
  COMMAND bridgegen --output ${PROJECT_BINARY_DIR} ${options} ${WRT_DECLARATIONS}
  DEPENDS bridgegen ${WRT_HAND_WRITTEN} ${WRT_DECLARATIONS}
  COMMENT "Generating the bridges")
add_custom_target(bridges DEPENDS ${WRT_GENERATED_OUTPUTS})

add_library(wrt_generated_abi INTERFACE)
target_include_directories(wrt_generated_abi INTERFACE ${PROJECT_BINARY_DIR})
add_dependencies(wrt_generated_abi bridges)
add_library(wrt_generated INTERFACE)
target_link_libraries(wrt_generated INTERFACE wrt_generated_abi)
