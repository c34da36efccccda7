# cmake -DPROGRAM=... -DARGUMENTS="a;b" -DRUNS=n -DGOLDEN=file -DFOLDER=dir [-DUPDATE=ON] -P compare_trace.cmake
# Runs the host with --trace, RUNS times over one fresh configuration folder, and compares all that it printed
# with the golden trace. What differs is shown and kept in FOLDER. UPDATE writes the golden trace instead.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
set(trace "")
foreach(run RANGE 1 ${RUNS})
  execute_process(COMMAND ${PROGRAM} ${ARGUMENTS} --trace --config ${FOLDER}/config
    OUTPUT_VARIABLE output RESULT_VARIABLE status ERROR_VARIABLE remarks)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "run ${run} ended with ${status}: ${remarks}")
  endif()
  string(APPEND trace "run ${run}\n${output}")
endforeach()

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
