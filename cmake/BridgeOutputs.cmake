# What bridgegen will make of the declarations, from its own table of outputs:
#
#   WRT_DECLARATIONS                the declaration files
#   WRT_GENERATED_HEADERS
#   WRT_CLASS_SOURCES               to be compiled into the library
#   WRT_CATALOGUE, WRT_IDENTIFIERS, WRT_MEMBERS, WRT_SURFACE_DIGEST   the tables of all methods, of all
#                                   names and identifiers, of all members, and of all classes
#   WRT_BRIDGE_EXPORTS              the names that WRTBridge_zorvex.dll has for the bridges
#   WRT_PLATFORM_SOURCES            delegate factories and activation names, for the embedded platform
#   WRT_GENERATED_OUTPUTS           all that is made

file(GLOB WRT_DECLARATIONS CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/marshal/test/*.idl
  ${PROJECT_SOURCE_DIR}/generic/*.idl
  ${PROJECT_SOURCE_DIR}/catalogue/*/*.idl)

set(table ${PROJECT_SOURCE_DIR}/generator/emit/Outputs.inc)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table})
file(STRINGS ${table} rows REGEX "^{")
foreach(row IN LISTS rows)
  string(REGEX MATCH "^{\"([^\"]+)\", Use::([A-Za-z]+), For::([A-Za-z]+)," row "${row}")
  if(CMAKE_MATCH_3 STREQUAL "AddOn")
    continue()
  endif()
  set(use ${CMAKE_MATCH_2})
  string(REPLACE "@" ${PROJECT_NAME} path ${PROJECT_BINARY_DIR}/${CMAKE_MATCH_1})
  if(path MATCHES "%")
    foreach(file IN LISTS WRT_DECLARATIONS)
      get_filename_component(unit ${file} NAME_WLE)
      string(REPLACE "%" ${unit} output ${path})
      list(APPEND outputs_${use} ${output})
    endforeach()
  else()
    list(APPEND outputs_${use} ${path})
  endif()
endforeach()
set(WRT_GENERATED_HEADERS ${outputs_Header})
set(WRT_CLASS_SOURCES ${outputs_LibrarySource})
set(WRT_CATALOGUE ${outputs_Catalogue})
set(WRT_IDENTIFIERS ${outputs_Identifiers})
set(WRT_MEMBERS ${outputs_Members})
set(WRT_SURFACE_DIGEST ${outputs_Digest})
set(WRT_BRIDGE_EXPORTS ${outputs_Exports})
set(WRT_PLATFORM_SOURCES ${outputs_PlatformSource})
set(WRT_GENERATED_OUTPUTS ${WRT_GENERATED_HEADERS} ${WRT_CLASS_SOURCES} ${WRT_PLATFORM_SOURCES}
  ${WRT_CATALOGUE} ${WRT_IDENTIFIERS} ${WRT_MEMBERS} ${WRT_SURFACE_DIGEST} ${WRT_BRIDGE_EXPORTS})
