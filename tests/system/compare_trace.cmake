# cmake -DPROGRAM=... "-DLIBRARIES=plug-in;vendor library" -DARGUMENTS="a;b" [-DPOLLS="n;m"] [-DSHOWN=file] -DGOLDEN=file -DFOLDER=dir [-DUPDATE=ON]
#   -P compare_trace.cmake
# Runs the host with --trace over a fresh configuration folder, again for each number of polls, and compares all
# that it printed with the golden trace. Of the log, lines that stand in the golden trace SHOWN as well and those
# on single properties are left out. What differs is shown and kept in FOLDER. UPDATE writes the golden trace
# instead. The libraries are loaded from a folder that nobody else can write: the tree may stand anywhere.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
execute_process(COMMAND mktemp -d OUTPUT_VARIABLE safe OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
foreach(library ${LIBRARIES})
  file(COPY ${library} DESTINATION ${safe} FILE_PERMISSIONS OWNER_READ OWNER_WRITE)
endforeach()
list(GET LIBRARIES 0 plugin)
get_filename_component(plugin ${plugin} NAME)
set(trace "")
if(NOT POLLS)
  set(POLLS all)
endif()
foreach(polls ${POLLS})
  set(limit --polls ${polls})
  if(polls STREQUAL "all")
    set(limit "")
  endif()
  execute_process(
    COMMAND ${PROGRAM} ${ARGUMENTS} ${limit} --trace --config ${safe}/config --plugin ${safe}/${plugin}
    OUTPUT_VARIABLE output RESULT_VARIABLE status ERROR_VARIABLE remarks)
  if(NOT status EQUAL 0)
    file(REMOVE_RECURSE ${safe})
    message(FATAL_ERROR "the run of ${polls} polls ended with ${status}: ${remarks}")
  endif()
  string(APPEND trace "run of ${polls} polls\n${output}")
endforeach()
file(REMOVE_RECURSE ${safe})
if(SHOWN)
  file(WRITE ${FOLDER}/whole.trace "${trace}")
  execute_process(COMMAND grep ^log ${SHOWN} OUTPUT_FILE ${FOLDER}/shown.trace COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND grep -vxFf ${FOLDER}/shown.trace ${FOLDER}/whole.trace
    COMMAND grep -ve "^log Property name" -e "^log .*::addProperty" OUTPUT_VARIABLE trace COMMAND_ERROR_IS_FATAL ANY)
endif()

if(UPDATE)
  file(WRITE ${GOLDEN} "${trace}")
  return()
endif()
file(WRITE ${FOLDER}/actual.trace "${trace}")
execute_process(COMMAND diff -u ${GOLDEN} ${FOLDER}/actual.trace OUTPUT_VARIABLE difference RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  string(SUBSTRING "${difference}" 0 4000 difference)
  message(FATAL_ERROR "the trace differs from ${GOLDEN}:\n${difference}")
endif()
