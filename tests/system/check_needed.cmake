cmake_minimum_required(VERSION 3.25)
# cmake -DREADELF=... -DLIBRARY=... -P check_needed.cmake
# Demands that the plug-in needs the three libraries of the data engine, and beside them nothing but the C and
# C++ runtime (and the sanitizers' own, in such a build).
execute_process(COMMAND ${READELF} -d ${LIBRARY} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
# Brackets hold a list's elements together, so they go before the text becomes a list.
string(REGEX REPLACE "[][]" " " dynamic "${dynamic}")
string(REGEX MATCHALL "NEEDED[^\n]*" needed "${dynamic}")
list(TRANSFORM needed REPLACE ".*: *([^ ]+) *$" "\\1")

foreach(library libmorlan.so.9 libpld_sm_ral.so libpld_sm_queue.so)
  if(NOT library IN_LIST needed)
    message(FATAL_ERROR "${library} is not among the needed libraries: ${needed}")
  endif()
  list(REMOVE_ITEM needed ${library})
endforeach()
list(FILTER needed EXCLUDE REGEX "^(lib(c|m|gcc_s|stdc\\+\\+|asan|ubsan|tsan)\\.so\\.[0-9]+|ld-linux.*)$")
if(needed)
  message(FATAL_ERROR "needed, and no part of the runtime: ${needed}")
endif()
