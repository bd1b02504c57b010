# The part of RunInstallTest.cmake about add-ons: examples/greeter as a project of its own, two add-ons
# of the same types in one program, all under sanitizers; what a change builds again; what is refused.

set(tools -DCMAKE_C_COMPILER=${COMPILER} -DCMAKE_OBJC_COMPILER=${COMPILER}
  -DCMAKE_CXX_COMPILER=${COMPILER_CXX} -DCMAKE_OBJCXX_COMPILER=${COMPILER_CXX})
set(bridgegen ${prefix}/bin/bridgegen)
set(declarations ${work}/declarations)
set(addons ${work}/addons)

run("bridgegen import" ${bridgegen} import ${SOURCE}/examples/greeter/Contoso.winmd
  --known ${prefix}/share/WRTObjcBridge/declarations --output ${declarations})
# The declarations of a second file are what changes below.
file(WRITE ${declarations}/Other.idl "namespace Other;
full interface IClock {6a9f0b52-3c1e-4d57-9b7a-51f1f3a9d001} { Int64 Ticks { get; } }\n")

# What both add-ons list.
file(WRITE ${declarations}/Shared.idl "namespace Shared;
extern Windows.Foundation.Collections.IVectorView<Windows.Foundation.Rect>;\n")

foreach(language IN ITEMS C CXX OBJC OBJCXX)
  list(APPEND sanitized "-DCMAKE_${language}_FLAGS=-fsanitize=address,undefined -fno-sanitize=vptr,function -fno-sanitize-recover=all -Wall -Wextra -Wno-unused-parameter -Werror")
endforeach()
set(configure_addons ${CMAKE_COMMAND} -G Ninja -S ${CMAKE_CURRENT_LIST_DIR}/addons
  -DCMAKE_PREFIX_PATH=${prefix} -DEXAMPLE=${SOURCE}/examples/greeter -DDECLARATIONS=${declarations} ${tools})
run("wrt_add_bridges: configuring" ${configure_addons} -B ${addons} ${sanitized})
run("wrt_add_bridges: building" ${CMAKE_COMMAND} --build ${addons})
# The runtimes lose what they allocate at start-up.
set(ENV{ASAN_OPTIONS} detect_leaks=0)
execute_process(COMMAND ${addons}/greeter/greet Ada Grace RESULT_VARIABLE status OUTPUT_VARIABLE output)
if(NOT status EQUAL 0 OR NOT output STREQUAL "Good morning, Ada!
Good morning, Grace!
1. Ada, calm, 7.5 minutes
2. Grace, merry, 15.0 minutes
door bell
porch light
")
  message(FATAL_ERROR "greet (${status}):\n${output}")
endif()
message(STATUS "greet: as it should be")
run("two add-ons in one program" ${addons}/both)
unset(ENV{ASAN_OPTIONS})

file(WRITE ${declarations}/Other.idl "namespace Other;
full interface IClock {6a9f0b52-3c1e-4d57-9b7a-51f1f3a9d001} { Int64 Ticks { get; set; } }\n")
execute_process(COMMAND ${CMAKE_COMMAND} --build ${addons} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "Building [^\n]*" built "${output}")
if(NOT built MATCHES "^Building OBJCXX object CMakeFiles/First.dir/First.bridges/classes/Other.mm.o$")
  message(FATAL_ERROR "another member builds:\n${built}\n${output}")
endif()
message(STATUS "another member: builds its own file alone")

set(library ${prefix}/lib/libWRTObjcBridge_zorvex.so)
file(RENAME ${library} ${work}/kept.so)
file(WRITE ${prefix}/lib/libWRTObjcBridge_zorvex.so.9.0.0 "")
file(CREATE_LINK libWRTObjcBridge_zorvex.so.9.0.0 ${library} SYMBOLIC)
refused("an add-on to another version" "beside it is another version" ${configure_addons} -B ${work}/other)
file(REMOVE ${library} ${library}.9.0.0)
file(RENAME ${work}/kept.so ${library})
