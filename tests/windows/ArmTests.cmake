# Images for ARM, read and executed: the doubles of the product's siblings, a sample library in the
# manner of the generated one, and its tests.

wrt_add_host_tools(wrt_emulator ${CMAKE_CURRENT_SOURCE_DIR}/emulator runemulated startuptests imagetests)

set(images ${CMAKE_BINARY_DIR}/arm-tests)
wrt_import_library(testhost ${CMAKE_CURRENT_SOURCE_DIR}/doubles/host.def OUTPUT host_library)

add_library(double_options INTERFACE)
target_link_libraries(double_options INTERFACE wrt_options)
target_include_directories(double_options INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})

add_library(double_entry OBJECT doubles/Entry.cpp)

# wrt_add_double(<name> [SOURCES <file>...] [OBJECTS <object library>...] [LIBRARIES <import library>...] [PATCHED]
#                [EXPORTS <file with export lines>])
# A double of a sibling: exports what the sibling's definition lists and what tests ask for.
function(wrt_add_double name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "PATCHED" "EXPORTS" "SOURCES;OBJECTS;LIBRARIES")
  add_library(${name}_objects OBJECT ${arg_SOURCES})
  target_link_libraries(${name}_objects PRIVATE double_options)
  set(definition ${PROJECT_SOURCE_DIR}/platform/windows/imports/${name}.def)
  set(options "")
  if(EXISTS ${definition})
    set(complete ${CMAKE_CURRENT_BINARY_DIR}/${name}.def)
    file(STRINGS ${definition} lines)
    if(arg_EXPORTS)
      file(STRINGS ${arg_EXPORTS} more)
    endif()
    string(JOIN "\n" text ${lines} ${more})
    file(GENERATE OUTPUT ${complete} CONTENT "${text}\n")
    set(options DEFINITION ${complete})
  endif()
  set(objects ${name}_objects ${arg_OBJECTS})
  if(arg_PATCHED)
    list(APPEND options PATCHED)
  else()
    list(APPEND objects double_entry)
    list(APPEND options ENTRY DoubleEntry)
  endif()
  wrt_add_arm_dll(double_${name} OUTPUT_NAME ${name} FOLDER ${images} OBJECTS ${objects}
    LIBRARIES ${arg_LIBRARIES} ${host_library} ${WRT_ARM_SYSTEM_LIBRARIES} ${options})
endfunction()

wrt_add_double(crt SOURCES doubles/crt/Crt.cpp)
target_compile_options(crt_objects PRIVATE -fno-builtin)

file(GLOB sources CONFIGURE_DEPENDS doubles/zorvex/*.mm doubles/zorvex/*.cpp)
enable_language(ASM)
add_library(message_send OBJECT doubles/zorvex/MessageSend.S)
wrt_add_double(zorvex SOURCES ${sources} OBJECTS message_send)
# The classes are written for one purpose each; what they leave out nobody calls.
target_compile_options(zorvex_objects PRIVATE -fno-builtin-malloc
  $<$<COMPILE_LANGUAGE:OBJCXX>:-Wno-incomplete-implementation
  -Wno-objc-method-access -Wno-nonnull -Wno-objc-designated-initializers>)

# The activation names are the generated ones; the delegate factories are made from the list of the
# product's imports. Loading the product fails when it imports anything else.
set(factories ${CMAKE_CURRENT_BINARY_DIR}/Factories.cpp)
add_custom_command(OUTPUT ${factories}
  COMMAND ${CMAKE_COMMAND} -DEXPORTS=${WRT_BRIDGE_EXPORTS} -DRESULT=${factories}
          -P ${CMAKE_CURRENT_SOURCE_DIR}/doubles/generated/Factories.cmake
  DEPENDS ${WRT_BRIDGE_EXPORTS} doubles/generated/Factories.cmake VERBATIM)
set(names ${WRT_PLATFORM_SOURCES})
list(FILTER names INCLUDE REGEX "\\.names\\.cpp$")
add_library(class_names OBJECT ${names})
target_link_libraries(class_names PRIVATE wrt_options wrt_generated_abi)
# Their header declares them as those who import them see them.
target_compile_options(class_names PRIVATE -Wno-dll-attribute-on-redeclaration)
set_target_properties(class_names PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)

file(GLOB sources CONFIGURE_DEPENDS doubles/bridge/*.cpp doubles/generated/*.cpp)
wrt_add_double(WRTBridge_zorvex SOURCES ${sources} ${factories} OBJECTS class_names
  LIBRARIES ${images}/zorvex.lib EXPORTS ${CMAKE_CURRENT_SOURCE_DIR}/doubles/bridge/tests.def)
wrt_add_double(WRTBridgeUtil_zorvex SOURCES doubles/util/StringConversion.mm PATCHED
  LIBRARIES ${images}/zorvex.lib ${images}/WRTBridge_zorvex.lib)
wrt_add_double(CrossPortability_zorvex SOURCES doubles/log/Log.mm LIBRARIES ${images}/zorvex.lib
  EXPORTS ${CMAKE_CURRENT_SOURCE_DIR}/doubles/log/tests.def)
set(doubles crt zorvex WRTBridge_zorvex WRTBridgeUtil_zorvex CrossPortability_zorvex)
list(TRANSFORM doubles REPLACE "(.+)" "${images}/\\1.dll" OUTPUT_VARIABLE double_images)
list(REMOVE_ITEM doubles crt)
list(TRANSFORM doubles REPLACE "(.+)" "${images}/\\1.lib" OUTPUT_VARIABLE double_libraries)

add_library(sample OBJECT sample/Sample.mm)
target_link_libraries(sample PRIVATE wrt_library_code)
target_include_directories(sample PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
wrt_add_arm_dll(WRTSample_zorvex FOLDER ${images} OBJECTS core marshal sample
  LIBRARIES ${double_libraries} ${WRT_ARM_SYSTEM_LIBRARIES} PATCHED)

add_library(sampletest_objects OBJECT arm/SampleTest.mm)
target_link_libraries(sampletest_objects PRIVATE double_options)
wrt_add_arm_dll(sampletest FOLDER ${images} OBJECTS sampletest_objects PATCHED
  LIBRARIES ${images}/WRTSample_zorvex.lib ${double_libraries} ${host_library}
            ${WRT_ARM_SYSTEM_LIBRARIES})

set(sample_image ${images}/WRTSample_zorvex.dll)
add_test(NAME windows.sample.rules COMMAND inspectimage check ${sample_image}
  WRTCreateNSStringFromHSTRING WRTCreateHSTRINGFromNSString WRTCreateNSErrorFromHRESULT)
add_test(NAME windows.sample.metadata COMMAND inspectimage compare ${sample_image}
  ${CMAKE_CURRENT_SOURCE_DIR}/sample/catalogue.tsv)
add_test(NAME windows.sample.emulated
  COMMAND runemulated runTests ${double_images} ${sample_image} ${images}/sampletest.dll)
add_test(NAME windows.startup COMMAND startuptests ${sample_image} ${images}/WRTSample_zorvex.map
  ${double_images})
add_test(NAME windows.images COMMAND imagetests ${sample_image}
  ${CMAKE_CURRENT_SOURCE_DIR}/sample/catalogue.tsv $<TARGET_FILE:fixuptable>)

include(${PROJECT_SOURCE_DIR}/tests/headers/HeaderTests.cmake)

# The product itself.
set(product ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.dll)
set(product_map ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.map)
add_test(NAME windows.product.rules COMMAND inspectimage check ${product}
  WRTCreateNSStringFromHSTRING WRTCreateHSTRINGFromNSString WRTCreateNSErrorFromHRESULT
  WRTCreateNSDataFromIBuffer WRTCreateWRTRandomAccessReferenceBridgeFromNSData
  WRTCreateNSDataFromRandomAccessStreamReference)
add_test(NAME windows.product.metadata COMMAND inspectimage compare ${product} ${WRT_CATALOGUE})

file(GLOB sources CONFIGURE_DEPENDS arm/Product*.mm)
add_library(producttest_objects OBJECT ${sources})
target_link_libraries(producttest_objects PRIVATE double_options wrt_generated)
wrt_add_arm_dll(producttest FOLDER ${images} OBJECTS producttest_objects PATCHED
  LIBRARIES ${CMAKE_BINARY_DIR}/WRTObjcBridge_zorvex.lib ${double_libraries} ${host_library}
            ${WRT_ARM_SYSTEM_LIBRARIES})
add_test(NAME windows.product.emulated
  COMMAND runemulated runTests,activateProxy,lookAtLog
          ${double_images} ${product} ${images}/producttest.dll)
add_test(NAME windows.product.startup COMMAND startuptests ${product} ${product_map} ${double_images})
add_test(NAME windows.product.size COMMAND sizereport check ${product} ${product_map} ${WRT_CATALOGUE}
  ${CMAKE_CURRENT_SOURCE_DIR}/goldens/large-methods.txt)
add_test(NAME windows.product.code COMMAND methodcode check ${product} ${product_map}
  ${CMAKE_CURRENT_SOURCE_DIR}/goldens/methods.txt)
