# Installs the build tree into a fresh prefix and demands that what lies there stands by itself: it plays a
# shipped scenario from its own files, and no file of it knows the source tree.
# -DBUILD= the build tree, -DSOURCE= the source tree, -DPREFIX= the folder to install into, -DDEBUG=1 for a build whose
# instrumentation names its sources
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX} --strip
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE files ${PREFIX}/*)
foreach(file ${files})
  if(DEBUG OR IS_SYMLINK ${file})
    continue()
  endif()
  execute_process(COMMAND grep --quiet --fixed-strings ${SOURCE} ${file} RESULT_VARIABLE absent)
  if(NOT absent EQUAL 1)
    message(FATAL_ERROR "${file} names ${SOURCE}")
  endif()
endforeach()

# A folder of the user's that nothing has been put into yet.
set(ENV{XDG_STATE_HOME} ${PREFIX}/state)
file(GLOB_RECURSE programs ${PREFIX}/*/zarnekctl)
execute_process(COMMAND ${programs} discover --scenario small-server
  OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
if(NOT output MATCHES "1 controller, 2 disks, 1 virtual disk; none reports trouble")
  message(FATAL_ERROR "unexpected output:\n${output}")
endif()
file(REMOVE_RECURSE ${PREFIX})
