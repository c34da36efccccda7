# The metrics as their collector sees them, and as the rules of its makers do.
# -DPROGRAM= zarnekctl, -DSOURCE= the source tree, -DWORK= a folder to work in
cmake_minimum_required(VERSION 3.25)
set(golden ${SOURCE}/tests/zarnekctl/golden)
file(REMOVE_RECURSE ${WORK})
set(ENV{XDG_STATE_HOME} ${WORK}/state)

# Whoever made it, the collector may read the file, and it finds nothing else beside it, also when there was no room
# for a new one.
set(file ${WORK}/collected/zarnek.prom)
file(MAKE_DIRECTORY ${WORK}/collected)
execute_process(COMMAND sh -c "umask 077 && exec \"$0\" metrics --scenario extremes --output \"$1\"" ${PROGRAM} ${file}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND sh -c "trap '' XFSZ && ulimit -f 0 && exec \"$0\" metrics --scenario small-server --output \"$1\""
  ${PROGRAM} ${file} RESULT_VARIABLE status ERROR_VARIABLE said)
file(STRINGS ${file} controllers REGEX "^zarnek_discovery_controllers")
if(NOT status EQUAL 1 OR NOT said MATCHES "zarnek.prom: cannot be written: File too large; name a file"
  OR NOT controllers STREQUAL "zarnek_discovery_controllers 5")
  message(FATAL_ERROR "without room: status ${status}, ${said}; in the file: ${controllers}")
endif()
execute_process(COMMAND stat -c %a ${file} OUTPUT_VARIABLE mode OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND ls -A ${WORK}/collected OUTPUT_VARIABLE present OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT mode STREQUAL "644" OR NOT present STREQUAL "zarnek.prom")
  message(FATAL_ERROR "mode ${mode}; in the folder: ${present}")
endif()

# A monitoring run renews them ahead of the first poll, after each and after the stop; through a pipe all show.
file(COPY_FILE ${golden}/odd-server-mapping.ini ${WORK}/state/zarnek/MarvelAlertMapping.ini)
execute_process(COMMAND ${PROGRAM} monitor --scenario ${golden}/odd-server.json --interval 0 --format json
  --metrics /dev/stdout OUTPUT_VARIABLE states COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "zarnek_(monitor_(running|polls_total) [0-9]+|monitor_[^\n]+ [1-9]|disk_state{controller=\"0\",slot=\"0\",state=\"failed\"} [01])"
  seen "${states}")
list(JOIN seen "\n" seen)
file(READ ${golden}/odd-server.monitor.metrics expected)
if(NOT expected STREQUAL "${seen}\n")
  message(FATAL_ERROR "states while monitoring:\n${seen}")
endif()

# Each is described.
file(READ ${SOURCE}/docs/metrics.md document)
string(REGEX MATCHALL "# TYPE [a-z_]+ [a-z]+" types "${states}")
list(REMOVE_DUPLICATES types)
foreach(type ${types})
  string(REGEX REPLACE "# TYPE ([a-z_]+) ([a-z]+)" "\n| `\\1` | \\2 |" row "${type}")
  string(FIND "${document}" "${row}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "docs/metrics.md has no row${row}")
  endif()
endforeach()

find_program(PROMTOOL promtool)
if(NOT PROMTOOL)
  message("left out: promtool is not there; the package prometheus has it")
  return()
endif()
string(REGEX REPLACE ".*(# HELP zarnek_build_info.*\n){\"record\".*" "\\1" last "${states}")
file(WRITE ${WORK}/collected/monitor.prom "${last}")
foreach(scenario small-server large-server disk-failure ${golden}/odd-server.json ${golden}/empty.json)
  get_filename_component(name ${scenario} NAME_WE)
  execute_process(COMMAND ${PROGRAM} metrics --scenario ${scenario} --output ${WORK}/collected/${name}.prom
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(GLOB collected ${WORK}/collected/*.prom)
foreach(file ${collected})
  execute_process(COMMAND ${PROMTOOL} check metrics INPUT_FILE ${file} OUTPUT_VARIABLE said ERROR_VARIABLE said
    RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${file}: ${said}")
  endif()
endforeach()
