# Programs for the building machine within a build for another one.
include(ExternalProject)
add_custom_target(host_tools)
set(WRT_HOST_TOOLS_OF "" CACHE PATH "A build for the same target whose tools for this machine are used")

# wrt_add_host_tools(<target> <folder> <tool>...)
#
# Builds the CMake project in <folder> for the building machine and imports each <tool> as an executable
# target of that name, to be used in COMMAND lines; DEPENDS on the tool rebuilds it. `host_tools` is all
# of them.
function(wrt_add_host_tools target folder)
  set(build "${CMAKE_BINARY_DIR}")
  if(WRT_HOST_TOOLS_OF)
    set(build "${WRT_HOST_TOOLS_OF}")
  endif()
  set(binaries "${build}/host/${target}")
  set(programs "")
  foreach(tool IN LISTS ARGN)
    list(APPEND programs "${binaries}/${tool}")
  endforeach()
  if(NOT WRT_HOST_TOOLS_OF)
    ExternalProject_Add(${target}
      SOURCE_DIR "${folder}"
      BINARY_DIR "${binaries}"
      CMAKE_GENERATOR Ninja
      CMAKE_ARGS -DCMAKE_C_COMPILER=clang-19 -DCMAKE_CXX_COMPILER=clang++-19
                 -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${binaries}
                 -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
                 -DWRT_WARNINGS_AS_ERRORS=${WRT_WARNINGS_AS_ERRORS}
      BUILD_COMMAND ${CMAKE_COMMAND} --build "${binaries}" --target ${ARGN}
      BUILD_ALWAYS ON
      BUILD_BYPRODUCTS ${programs}
      INSTALL_COMMAND "")
    add_dependencies(host_tools ${target})
  endif()
  foreach(tool IN LISTS ARGN)
    add_executable(${tool} IMPORTED GLOBAL)
    set_target_properties(${tool} PROPERTIES IMPORTED_LOCATION "${binaries}/${tool}")
    if(TARGET ${target})
      add_dependencies(${tool} ${target})
    endif()
  endforeach()
endfunction()
