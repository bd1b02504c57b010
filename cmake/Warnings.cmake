# `WRT_WARNINGS`: the warnings that all of our code is compiled with. Also for the projects of tools that
# are built by themselves.
option(WRT_WARNINGS_AS_ERRORS "Warnings of the compiler are errors" ${PROJECT_IS_TOP_LEVEL})
set(WRT_WARNINGS -Wall -Wextra $<$<BOOL:${WRT_WARNINGS_AS_ERRORS}>:-Werror>)
