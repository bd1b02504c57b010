# Installs the library into a folder of its own, moves that elsewhere, and builds and runs applications
# against it in every way that the installation offers. A script: BUILD, SOURCE, COMPILER, PKG_CONFIG
# and COMPONENT come from the command line. What has been installed stays for the test `docs`.

set(application ${CMAKE_CURRENT_LIST_DIR}/application)
set(work ${BUILD}/install-test)
set(prefix "${work}/moved to here")
file(REMOVE_RECURSE ${work})
unset(ENV{LD_LIBRARY_PATH})

function(run title)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${title} fails (${status}):\n${output}")
  endif()
  message(STATUS "${title}: as it should be")
endfunction()

# refused(<title> <pattern> <command>...)
function(refused title pattern)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE output)
  string(REGEX REPLACE "[ \n]+" " " output "${output}")
  if(status EQUAL 0 OR NOT output MATCHES "${pattern}")
    message(FATAL_ERROR "${title} (${status}):\n${output}")
  endif()
  message(STATUS "${title}: refused as it should be")
endfunction()

run("cmake --install" ${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/first --strip)
file(RENAME ${work}/first ${prefix})

# No text tells where it was built or first installed, and no library looks for others there. (In the
# libraries' data the names of the sources remain: the GNU runtime's modules are named after them.)
file(GLOB_RECURSE installed ${prefix}/*)
list(LENGTH installed count)
if(count LESS 100)
  message(FATAL_ERROR "only ${count} files are installed")
endif()
foreach(file IN LISTS installed)
  if(file MATCHES "\\.a$")
    continue() # objects look for nothing
  elseif(file MATCHES "\\.so[.0-9]*$|/bin/")
    execute_process(COMMAND readelf -d ${file} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  else()
    file(READ ${file} text)
  endif()
  foreach(folder IN ITEMS ${BUILD} ${SOURCE} ${work})
    string(FIND "${text}" "${folder}" position)
    if(NOT position EQUAL -1)
      message(FATAL_ERROR "${file} names ${folder}")
    endif()
  endforeach()
endforeach()
message(STATUS "${count} files are installed, and none leads to where they were built")

set(configure ${CMAKE_COMMAND} -G Ninja -S ${application} -DCMAKE_PREFIX_PATH=${prefix})
run("find_package: configuring" ${configure} -B ${work}/package -DCMAKE_C_COMPILER=${COMPILER}
  -DCMAKE_OBJC_COMPILER=${COMPILER} -DCMAKE_CXX_COMPILER=${COMPILER_CXX}
  -DCMAKE_OBJCXX_COMPILER=${COMPILER_CXX})
run("find_package: building" ${CMAKE_COMMAND} --build ${work}/package)
foreach(source IN ITEMS application.m application.mm linked.cpp support.m)
  run("find_package: running ${source}" ${work}/package/${source}.run ${COMPONENT})
endforeach()

# The trace finds its tables where they are now.
run("LD_PRELOAD: tracing application.m" ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/lib
  LD_PRELOAD=libWRTTrace.so WRT_LOG_LEVEL=1 WRT_TRACE_FILE=${work}/traced
  ${work}/package/application.m.run ${COMPONENT})
file(STRINGS ${work}/traced lines REGEX "^[0-9]+ [0-9] > .*Bridge .*\\) .*[0-9]us$")
if(NOT lines)
  message(FATAL_ERROR "the trace of application.m shows no call")
endif()

refused("find_package with gcc" "WRTObjcBridge needs clang \\(its headers use blocks\\)"
  ${configure} -B ${work}/gcc -DCMAKE_C_COMPILER=gcc)

set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs wrtobjcbridge
  OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
foreach(source IN ITEMS application.m application.mm linked.cpp)
  run("pkg-config: building ${source}" ${COMPILER_CXX} -x none ${application}/${source} -Wall -Wextra
    -Werror ${flags} -ldl -o ${work}/${source}.run)
  run("pkg-config: running ${source}" ${work}/${source}.run ${COMPONENT})
endforeach()

run("@import: building" ${COMPILER} ${application}/application.m -DAS_MODULE -fmodules
  -fmodules-cache-path=${work}/modules ${flags} -ldl -o ${work}/application-of-module)
run("@import: running" ${work}/application-of-module ${COMPONENT})

execute_process(COMMAND ${PKG_CONFIG} --cflags --libs wrtsupport
  OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
foreach(how IN ITEMS -UAS_MODULE "-DAS_MODULE;-fmodules;-fmodules-cache-path=${work}/modules")
  run("pkg-config wrtsupport ${how}: building" ${COMPILER} ${application}/support.m ${how} -Wall -Wextra
    -Werror ${flags} -o ${work}/support.run)
  run("pkg-config wrtsupport ${how}: running" ${work}/support.run)
endforeach()

include(${CMAKE_CURRENT_LIST_DIR}/AddOns.cmake)
