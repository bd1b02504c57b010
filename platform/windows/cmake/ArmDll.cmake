# Linking for Windows on ARM. CMake compiles the objects; the links are commands of their own, because
# an image with a fixup table takes two.

find_program(WRT_LLD_LINK lld-link-19 REQUIRED)
find_program(WRT_DLLTOOL llvm-dlltool-19 REQUIRED)
find_program(WRT_NM llvm-nm-19 REQUIRED)
set(WRT_ARM_LINK "${CMAKE_CURRENT_LIST_DIR}/../link.sh" CACHE INTERNAL "Runs the linker")
set(WRT_IMPORTED_DATA "${CMAKE_CURRENT_LIST_DIR}/../imported-data.sh" CACHE INTERNAL "Names imported data")

set(WRT_ARM_IMPORT_LIBRARIES "${CMAKE_BINARY_DIR}/imports" CACHE INTERNAL "Where import libraries go")

# wrt_import_library(<name> <definition file>... [OUTPUT <variable>])
#
# Makes <name>.lib from a .def file; further files hold more export lines and are appended to the first.
function(wrt_import_library name definition)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "OUTPUT" "")
  set(library "${WRT_ARM_IMPORT_LIBRARIES}/${name}.lib")
  set(complete "${WRT_ARM_IMPORT_LIBRARIES}/${name}.def")
  file(MAKE_DIRECTORY "${WRT_ARM_IMPORT_LIBRARIES}")
  add_custom_command(OUTPUT "${library}"
    COMMAND ${CMAKE_COMMAND} -E cat "${definition}" ${arg_UNPARSED_ARGUMENTS} > "${complete}"
    COMMAND ${WRT_DLLTOOL} -m ${WRT_MACHINE} -d "${complete}" -l "${library}"
    DEPENDS "${definition}" ${arg_UNPARSED_ARGUMENTS}
    COMMENT "Import library of ${name}" VERBATIM)
  add_custom_target(${name}_imports DEPENDS "${library}")
  if(arg_OUTPUT)
    set(${arg_OUTPUT} "${library}" PARENT_SCOPE)
  endif()
endfunction()

# wrt_add_arm_dll(<target>
#   OBJECTS <object library>...       what it is made of
#   [LIBRARIES <import library>...]   files, as made by wrt_import_library or as the .lib of another DLL
#   [OUTPUT_NAME <name>]              <target> without it
#   [FOLDER <folder>]                 where the results go; CMAKE_BINARY_DIR without it
#   [ENTRY <symbol>]                  WRTDllEntry without it
#   [DEFINITION <file>]               a .def file with further exports
#   [PATCHED]                         links start-up in and gives the image its fixup table
#   [PROGRAM])                        a console program, <name>.exe, which exports nothing; ENTRY does not return
#
# Results: <name>.dll, <name>.lib (its import library), <name>.map, <name>.pdb (its public symbols). They
# are there only when the image has passed the check of its fixup table. They are the same to the byte for
# the same objects, wherever these are: the linker sees no path of the build.
function(wrt_add_arm_dll target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "PATCHED;PROGRAM" "OUTPUT_NAME;FOLDER;ENTRY;DEFINITION" "OBJECTS;LIBRARIES")
  if(NOT arg_OUTPUT_NAME)
    set(arg_OUTPUT_NAME ${target})
  endif()
  if(NOT arg_FOLDER)
    set(arg_FOLDER "${CMAKE_BINARY_DIR}")
  endif()
  if(NOT arg_ENTRY)
    set(arg_ENTRY WRTDllEntry)
  endif()
  set(kinds dll lib map pdb)
  set(image ${arg_OUTPUT_NAME}.dll)
  set(form /dll)
  set(subsystem windows)
  set(container /appcontainer)
  set(import_library "/implib:${arg_OUTPUT_NAME}.lib")
  if(arg_PROGRAM)
    set(kinds exe map pdb)
    set(image ${arg_OUTPUT_NAME}.exe)
    set(form "")
    set(subsystem console,6.02) # the first Windows on ARM
    set(container "")
    set(import_library "")
  endif()
  set(result "${arg_FOLDER}/${arg_OUTPUT_NAME}")
  # The image is linked under its own name, which it carries, but beside the place where it is wanted:
  # what has not passed the check must not look finished.
  set(scratch "${CMAKE_CURRENT_BINARY_DIR}/${target}.link")
  file(MAKE_DIRECTORY "${scratch}/first" "${arg_FOLDER}")

  # The patcher comes last: so does its table then, and a table that grows moves nothing else.
  set(objects ${arg_OBJECTS} wrt_arm_runtime)
  if(arg_PATCHED)
    list(APPEND objects wrt_patcher)
  endif()
  set(files "")
  foreach(library IN LISTS objects)
    list(APPEND files "$<TARGET_OBJECTS:${library}>")
  endforeach()
  file(GENERATE OUTPUT "${scratch}/objects.txt" CONTENT "$<JOIN:${files},\n>\n")
  file(RELATIVE_PATH binaries "${scratch}" "${CMAKE_BINARY_DIR}")
  set(libraries "")
  foreach(library IN LISTS arg_LIBRARIES)
    file(RELATIVE_PATH library "${scratch}" "${library}")
    list(APPEND libraries "${library}")
  endforeach()

  # Names of sections in images have 8 characters: the lists of the Objective-C metadata share one.
  set(lists classlist nlclslist catlist protolist classrefs superrefs selrefs protorefs)
  list(TRANSFORM lists REPLACE "(.+)" "/merge:.objc_\\1=objclist")
  set(link ${WRT_ARM_LINK} ${WRT_LLD_LINK} -lldmingw -exclude-all-symbols -runtime-pseudo-reloc:no /nologo ${form} /machine:${WRT_MACHINE}
    /entry:${arg_ENTRY} /nodefaultlib /subsystem:${subsystem} /base:0x10000000
    /dynamicbase /nxcompat ${container} /Brepro
    # All code and data stay: members are reached through metadata that no symbol refers to. Folding
    # identical functions would change nothing: the linker compares the names of sections too, and
    # here every function's section has its own.
    /opt:noref
    # Import slots keep a section of their own; the constant-string pass looks for it.
    /merge:.idata=.idata /merge:.CRT=.rdata /merge:.buildid=.rdata
    ${lists} /merge:.objc_imageinfo=.rdata
    # The symbols lie beside the image, which names their file without a folder.
    /debug "/pdbaltpath:${arg_OUTPUT_NAME}.pdb" /pdbsourcepath:/
    @objects.rsp @imported-data.rsp)

  if(arg_DEFINITION)
    list(APPEND link "/def:${arg_DEFINITION}")
  endif()
  if(arg_PATCHED)
    set(commands
      # Of the same name: images carry it, and it must not move anything.
      COMMAND ${link} "/out:first/${image}" ${libraries}
      COMMAND fixuptable make "first/${image}" FixupRecords.s
      COMMAND ${CMAKE_C_COMPILER} --target=${WRT_ARM_TARGET} -c FixupRecords.s -o FixupRecords.o)
    set(records FixupRecords.o)
    set(check COMMAND fixuptable check ${image})
  endif()
  list(TRANSFORM kinds PREPEND "${arg_OUTPUT_NAME}." OUTPUT_VARIABLE linked)
  list(TRANSFORM kinds PREPEND "${result}." OUTPUT_VARIABLE results)
  add_custom_command(OUTPUT ${results}
    COMMAND sed "s|^${CMAKE_BINARY_DIR}/|${binaries}|" objects.txt > objects.rsp
    COMMAND ${WRT_IMPORTED_DATA} ${WRT_NM} objects.rsp imported-data.rsp
    ${commands}
    COMMAND ${link} "/out:${image}" ${import_library}
            "/lldmap:${arg_OUTPUT_NAME}.map" ${records} ${libraries}
    ${check}
    COMMAND ${CMAKE_COMMAND} -E copy ${linked} "${arg_FOLDER}"
    DEPENDS ${files} ${WRT_IMPORTED_DATA} "${scratch}/objects.txt" ${arg_LIBRARIES}
            ${arg_DEFINITION} $<$<BOOL:${arg_PATCHED}>:fixuptable>
    WORKING_DIRECTORY "${scratch}"
    COMMENT "Linking ${image}" COMMAND_EXPAND_LISTS VERBATIM)
  add_custom_target(${target} ALL DEPENDS ${results})
endfunction()
