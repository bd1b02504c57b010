# Installs the library into a folder of its own, moves that elsewhere, and builds and runs an
# application against it in every way that the installation offers. A script: BUILD, SOURCE, COMPILER,
# PKG_CONFIG and COMPONENT come from the command line.

set(here ${CMAKE_CURRENT_LIST_DIR})
set(work ${BUILD}/install-test)
set(prefix ${work}/moved)
file(REMOVE_RECURSE ${work})

function(run title)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${title} fails (${status}):\n${output}")
  endif()
  message(STATUS "${title}: as it should be")
endfunction()

# The component's own library path names the build; the installed libraries have to come first.
function(run_application title program)
  run("${title}" ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/lib ${program} ${COMPONENT})
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
  if(file MATCHES "\\.so$")
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

run("find_package: configuring" ${CMAKE_COMMAND} -G Ninja -S ${here}/application -B ${work}/package
  -DCMAKE_OBJC_COMPILER=${COMPILER} -DCMAKE_C_COMPILER=${COMPILER} -DCMAKE_PREFIX_PATH=${prefix})
run("find_package: building" ${CMAKE_COMMAND} --build ${work}/package)
run_application("find_package: running" ${work}/package/application)

set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs wrtobjcbridge
  OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
run("pkg-config: building" ${COMPILER} ${here}/application/application.m -Wall -Wextra -Werror
  ${flags} -ldl -o ${work}/application)
run_application("pkg-config: running" ${work}/application)

run("@import: building" ${COMPILER} ${here}/application/application.m -DAS_MODULE -fmodules
  -fmodules-cache-path=${work}/modules ${flags} -ldl -o ${work}/application-of-module)
run_application("@import: running" ${work}/application-of-module)
