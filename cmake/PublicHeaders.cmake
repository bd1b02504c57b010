# The hand-written public headers, gathered beside the generated ones.

file(GLOB WRT_PUBLIC_HEADERS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/core/WRT*.h)
list(APPEND WRT_PUBLIC_HEADERS ${PROJECT_SOURCE_DIR}/platform/include/WRTTypes.h
  ${PROJECT_SOURCE_DIR}/platform/include/WRTOwnership.h)
foreach(header IN LISTS WRT_PUBLIC_HEADERS)
  get_filename_component(name ${header} NAME)
  configure_file(${header} ${PROJECT_BINARY_DIR}/include/WRTObjcBridge/${name} COPYONLY)
endforeach()
