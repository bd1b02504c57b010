# Writes the test component's members from the header HEADER, which bridgegen made of their declarations, into
# RESULT. What a member does follows from its parameters (Answers.h); one that takes a delegate is written by
# hand.
file(STRINGS ${HEADER} lines REGEX "WRT_ABI (In[^v]|Out|Return|Void|Slot)")
set(text "// Made from the declarations of the test interfaces.\n")
foreach(line IN LISTS lines)
  string(REGEX MATCH "WRT_ABI ([A-Za-z0-9]+)\\((.*)\\) = 0" match "${line}")
  set(name ${CMAKE_MATCH_1})
  string(REGEX REPLACE "(^| )Test" "\\1abi::Test" parameters "${CMAKE_MATCH_2}")
  set(body "override;")
  if(NOT parameters MATCHES "Delegate")
    string(REGEX REPLACE "(^|, )[A-Za-z0-9:]+ \\**([a-z]+)" ", \\2" arguments "${parameters}")
    set(body "override { meddle(); return answer(\"${name}\"${arguments}); }")
  endif()
  string(APPEND text "HRESULT WRT_ABI ${name}(${parameters}) ${body}\n")
endforeach()
file(WRITE ${RESULT} "${text}")
