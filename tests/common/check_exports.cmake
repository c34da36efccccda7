# cmake -DNM=... -DLIBRARY=... -DMAP=... -P check_exports.cmake
# Demands that a library defines exactly the dynamic symbols that its version script names.
execute_process(COMMAND ${NM} -D --defined-only --format=posix ${LIBRARY}
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" symbols "${symbols}")
list(TRANSFORM symbols REPLACE " .*" "")
list(SORT symbols)

file(READ ${MAP} map)
string(REGEX REPLACE ".*global:(.*)local:.*" "\\1" names "${map}")
string(REGEX MATCHALL "[A-Za-z_0-9]+" names "${names}")
list(SORT names)

if(NOT symbols STREQUAL names)
  message(FATAL_ERROR "exported: ${symbols}\nexpected: ${names}")
endif()
