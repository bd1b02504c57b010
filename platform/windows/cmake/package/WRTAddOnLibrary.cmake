# The parts of wrt_add_bridges that depend on the platform: for Windows on ARM.

function(_wrt_check_version target)
  # The marshalling objects are part of this very image's code.
  file(SHA256 "${_wrt_kit}/bin/WRTObjcBridge_zorvex.dll" found)
  file(READ "${_wrt_kit}/lib/cmake/WRTObjcBridge/product.sha256" expected)
  if(NOT found STREQUAL expected)
    message(FATAL_ERROR "wrt_add_bridges(${target}): this kit makes add-ons to the image that it was "
      "installed with, and WRTObjcBridge_zorvex.dll in it is another version.")
  endif()
endfunction()

# With the variables of wrt_add_bridges. Makes ${target}.dll with its import library, map and symbols.
function(_wrt_add_library target)
  add_library(${target}_objects OBJECT ${outputs})
  target_compile_features(${target}_objects PRIVATE cxx_std_20)
  target_compile_definitions(${target}_objects PRIVATE ${definitions})
  # The headers of classes' names and factories declare them as those who import them see them.
  target_compile_options(${target}_objects PRIVATE -Wno-dll-attribute-on-redeclaration
    -Wno-nullability-completeness)
  target_link_libraries(${target}_objects PRIVATE ${target}_abi)
  wrt_add_arm_dll(${target} PATCHED OBJECTS ${target}_objects wrt_marshal
    LIBRARIES "${_wrt_kit}/lib/WRTObjcBridge_zorvex.lib" ${WRT_ARM_IMPORTS})
endfunction()
