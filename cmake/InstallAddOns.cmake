# What `cmake --install` puts in place for those who make bridges of types of their own with
# wrt_add_bridges:
#
#   bin/bridgegen
#   share/WRTObjcBridge/declarations/   what the library was made of
#   share/WRTObjcBridge/detail/         marshalling code, the library's members, the declarations and
#                                       helpers of components in C++: promised to nobody
#   lib/                                a static library with the marshalling code, which the library
#                                       does not export, for add-ons of exactly this version

# Not below the public headers: their module would count them as its own.
set(detail ${CMAKE_INSTALL_DATADIR}/WRTObjcBridge/detail)
add_library(wrt_detail STATIC $<TARGET_OBJECTS:marshal>)
set_target_properties(wrt_detail PROPERTIES EXPORT_NAME detail LINKER_LANGUAGE CXX
  OUTPUT_NAME WRTObjcBridge_detail-${PROJECT_VERSION} ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
target_include_directories(wrt_detail INTERFACE
  $<INSTALL_INTERFACE:${detail}> $<INSTALL_INTERFACE:${detail}/platform/include>)
target_link_libraries(wrt_detail INTERFACE WRTObjcBridge WRTBridge_zorvex CrossPortability_zorvex)
if(WRT_RELEASE_STRING_RESULTS)
  target_compile_definitions(wrt_detail INTERFACE WRT_RELEASE_STRING_RESULTS)
endif()

install(TARGETS bridgegen wrt_detail EXPORT WRTObjcBridge
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${WRT_DECLARATIONS} DESTINATION ${CMAKE_INSTALL_DATADIR}/WRTObjcBridge/declarations)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/core ${PROJECT_SOURCE_DIR}/marshal DESTINATION ${detail}
  FILES_MATCHING PATTERN "*.h" PATTERN "WRT*.h" EXCLUDE PATTERN test EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/include DESTINATION ${detail}/platform
  FILES_MATCHING PATTERN "*.h" PATTERN "*.inc" PATTERN WRTTypes.h EXCLUDE)
foreach(folder IN ITEMS activation bridge components/async components/collections components/generic
    implement memory string)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/linux/${folder}/
    DESTINATION ${detail}/platform/linux/${folder} FILES_MATCHING PATTERN "*.h")
endforeach()
foreach(folder IN ITEMS abi members platform)
  install(DIRECTORY ${PROJECT_BINARY_DIR}/${folder}/ DESTINATION ${detail}/${folder}
    FILES_MATCHING PATTERN "*.h" PATTERN linux EXCLUDE)
endforeach()
