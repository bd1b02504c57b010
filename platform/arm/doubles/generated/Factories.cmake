# Writes the delegate factories that the product takes from WRTBridge_zorvex.dll: one line for each
# name in the list EXPORTS, into RESULT.
file(STRINGS ${EXPORTS} names REGEX "FromBlock$")
set(text "// Made from the product's list of imports.\n#include \"platform/arm/doubles/generated/NamedDelegate.h\"\n\n")
foreach(name IN LISTS names)
  string(APPEND text
    "WRT_EXTERN_C WRT_DLLEXPORT void *${name}(void *block) { return makeNamedDelegate(block, \"${name}\"); }\n")
endforeach()
file(WRITE ${RESULT} "${text}")
