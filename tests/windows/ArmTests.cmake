# The product's image, read and executed in the emulated machine.

wrt_add_host_tools(wrt_arm_tests ${CMAKE_CURRENT_SOURCE_DIR}/emulator runemulated startuptests imagetests armsweep buffertests)

include(${PROJECT_SOURCE_DIR}/tests/headers/HeaderTests.cmake)

set(product ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.dll)
set(product_map ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.map)
add_test(NAME windows.product.rules COMMAND inspectimage check ${product}
  ${CMAKE_CURRENT_SOURCE_DIR}/goldens/imports.txt ${WRT_BRIDGE_EXPORTS}
  WRTCreateNSStringFromHSTRING WRTCreateHSTRINGFromNSString WRTCreateNSErrorFromHRESULT
  WRTCreateNSDataFromIBuffer WRTCreateWRTRandomAccessReferenceBridgeFromNSData
  WRTCreateNSDataFromRandomAccessStreamReference)
add_test(NAME windows.product.metadata COMMAND inspectimage compare ${product} ${WRT_CATALOGUE})

file(GLOB sources CONFIGURE_DEPENDS arm/Product*.mm)
add_library(producttest_objects OBJECT ${sources})
target_link_libraries(producttest_objects PRIVATE wrt_options wrt_generated)
target_include_directories(producttest_objects PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
wrt_add_arm_dll(producttest FOLDER ${WRT_ARM_IMAGES} OBJECTS producttest_objects PATCHED
  LIBRARIES ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.lib ${WRT_ARM_DOUBLE_LIBRARIES}
            ${WRT_ARM_SYSTEM_LIBRARIES})
add_test(NAME windows.product.emulated
  COMMAND runemulated ${WRT_ARM_DOUBLES} ${product} ${WRT_ARM_IMAGES}/producttest.dll)
add_test(NAME windows.product.startup COMMAND startuptests ${product} ${product_map} ${WRT_ARM_DOUBLES})
add_test(NAME windows.product.size COMMAND sizereport check ${product} ${product_map} ${WRT_CATALOGUE}
  ${WRT_SURFACE_DIGEST} ${CMAKE_CURRENT_SOURCE_DIR}/goldens/large-methods.txt)
add_test(NAME windows.product.code COMMAND methodcode check ${product} ${product_map}
  ${CMAKE_CURRENT_SOURCE_DIR}/goldens/methods.txt)
add_test(NAME windows.images COMMAND imagetests ${product} ${WRT_CATALOGUE})
add_test(NAME windows.product.calls
  COMMAND armcalls check ${CMAKE_CURRENT_SOURCE_DIR}/goldens/call-ceilings.tsv ${WRT_ARM_DOUBLES} ${product})
add_test(NAME windows.product.sweep
  COMMAND armsweep ${WRT_CATALOGUE} ${WRT_IDENTIFIERS} ${WRT_ARM_DOUBLES} ${product})
add_test(NAME windows.product.planted_slot
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/sweep/planted-slot.sh $<TARGET_FILE:armsweep> ${WRT_CATALOGUE}
          ${WRT_IDENTIFIERS} ${product_map} ${CMAKE_BINARY_DIR}/planted-slot ${WRT_ARM_DOUBLES} ${product})
add_test(NAME windows.product.buffers
  COMMAND buffertests ${WRT_IDENTIFIERS} ${WRT_ARM_DOUBLES} ${product})
add_test(NAME windows.product.two_folders
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/two-folders.sh ${PROJECT_SOURCE_DIR} ${CMAKE_BINARY_DIR}
          ${CMAKE_BINARY_DIR}/two-folders)
add_test(NAME windows.product.selected
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/selected.sh ${PROJECT_SOURCE_DIR} ${CMAKE_BINARY_DIR}
          ${CMAKE_BINARY_DIR}/selected $<TARGET_FILE:inspectimage>)

# The library for another architecture, as far as it can be tried: compiled, linked and read.
file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/core/*.mm ${PROJECT_SOURCE_DIR}/marshal/*.mm
  ${PROJECT_SOURCE_DIR}/platform/windows/patcher/*.cpp ${PROJECT_SOURCE_DIR}/platform/windows/runtime/*.cpp)
set_source_files_properties(${PROJECT_SOURCE_DIR}/core/WRTHSTRINGBridge.mm PROPERTIES COMPILE_OPTIONS -fobjc-arc)
add_library(other_architecture OBJECT ${sources} ${PROJECT_BINARY_DIR}/Classes.mm)
target_link_libraries(other_architecture PRIVATE wrt_library_code wrt_generated)
target_compile_options(other_architecture PRIVATE --target=aarch64-pc-windows-gnu -Wno-nullability-completeness)
file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/other-architecture.rsp
  CONTENT "$<JOIN:$<TARGET_OBJECTS:other_architecture>,\n>\n")
add_test(NAME windows.other_architecture
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/other-architecture.sh ${CMAKE_BINARY_DIR}
          ${CMAKE_CURRENT_BINARY_DIR}/other-architecture.rsp ${CMAKE_CURRENT_BINARY_DIR}/other-architecture)

# What is installed starts up and answers as what was built.
set(kit ${CMAKE_BINARY_DIR}/kit)
add_test(NAME windows.kit.install
  COMMAND sh -c "rm -rf '${kit}' && '${CMAKE_COMMAND}' --install '${CMAKE_BINARY_DIR}' --prefix '${kit}'")
set_tests_properties(windows.kit.install PROPERTIES FIXTURES_SETUP kit)
add_test(NAME windows.kit.run
  COMMAND armcalls run ${WRT_ARM_DOUBLES} ${kit}/bin/WRTObjcBridge_zorvex.dll)
add_test(NAME windows.kit.smoke COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/smoke.sh $<TARGET_FILE:armprogram>
  ${kit}/bin ${CMAKE_BINARY_DIR}/planted-slot/smoke ${product_map} ${WRT_ARM_DOUBLES})
add_test(NAME windows.kit.versions COMMAND grep -c "^[a-z0-9+-]* [0-9]" ${kit}/versions.txt)
set_tests_properties(windows.kit.run windows.kit.smoke windows.kit.versions PROPERTIES FIXTURES_REQUIRED kit)
set_tests_properties(windows.kit.versions PROPERTIES PASS_REGULAR_EXPRESSION "^5\n")

add_test(NAME windows.kit.addon COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/addon/run.sh ${PROJECT_SOURCE_DIR} ${kit}
  ${CMAKE_BINARY_DIR}/addon ${WRT_ARM_SYSROOT} $<TARGET_FILE:inspectimage> $<TARGET_FILE:runemulated>
  "${WRT_ARM_DOUBLE_LIBRARIES}" ${WRT_ARM_DOUBLES})
set_tests_properties(windows.kit.addon PROPERTIES FIXTURES_REQUIRED kit)

# Writes anew what follows from the code: the goldens of methods, the ceilings of calls with their table, docs/size.md.
add_custom_target(update_goldens
  COMMAND methodcode update ${product} ${product_map} ${CMAKE_CURRENT_SOURCE_DIR}/goldens/methods.txt
  COMMAND armcalls write ${CMAKE_CURRENT_SOURCE_DIR}/goldens/call-ceilings.tsv
          ${PROJECT_SOURCE_DIR}/docs/performance.md ${WRT_ARM_DOUBLES} ${product}
  COMMAND sizereport write ${product} ${product_map} ${PROJECT_SOURCE_DIR}/docs/size.md
  COMMAND ${PROJECT_SOURCE_DIR}/cmake/pictures.sh
  DEPENDS WRTObjcBridge ${WRT_ARM_DOUBLES} VERBATIM)
