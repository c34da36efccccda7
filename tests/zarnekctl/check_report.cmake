# The report as a browser shows it: its content, narrow and wide, light and dark, with nothing to say on the console.
# The screenshots stay in the work folder for somebody to look at.
# -DPROGRAM= zarnekctl, -DSOURCE= the source tree, -DWORK= a folder to work in
cmake_minimum_required(VERSION 3.25)
if("$ENV{ZARNEK_LONG}" STREQUAL "")
  message("left out: only the long form of the tests starts a browser")
  return()
endif()
find_program(BROWSER chromium)
if(NOT BROWSER)
  message("left out: chromium is not there; its package has the same name")
  return()
endif()
set(golden ${SOURCE}/tests/zarnekctl/golden)
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
set(ENV{XDG_STATE_HOME} ${WORK}/state)
set(ENV{XDG_CONFIG_HOME} ${WORK}/browser)
set(ENV{XDG_CACHE_HOME} ${WORK}/browser)

execute_process(COMMAND ${PROGRAM} monitor --scenario ${golden}/markup.json --interval 0 --report ${WORK}/markup.html
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${PROGRAM} report --scenario large-server --output ${WORK}/large.html COMMAND_ERROR_IS_FATAL ANY)
file(COPY ${SOURCE}/tests/zarnekctl/report_probe.html DESTINATION ${WORK})

# browse(colour scheme, arguments...): the preferred scheme is 0 for dark and 1 for light.
function(browse scheme)
  execute_process(COMMAND timeout 100 ${BROWSER} --headless --no-sandbox --disable-gpu --hide-scrollbars
    --user-data-dir=${WORK}/browser --allow-file-access-from-files --virtual-time-budget=10000 --enable-logging=stderr
    --blink-settings=preferredColorScheme=${scheme} ${ARGN}
    OUTPUT_VARIABLE page ERROR_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
  if(said MATCHES "[^\n]*CONSOLE[^\n]*")
    message(FATAL_ERROR "on the console: ${CMAKE_MATCH_0}")
  endif()
  set(page "${page}" PARENT_SCOPE)
endfunction()

foreach(scheme 0 1)
  foreach(report markup large)
    browse(${scheme} --dump-dom file://${WORK}/report_probe.html\#${report}.html)
    string(REGEX REPLACE ".*<pre id=\"seen\">(.*)</pre>.*" "\\1" seen "${page}")
    file(WRITE ${WORK}/${report}-${scheme}.seen "${seen}")
    file(READ ${golden}/${report}.seen expected)
    if(NOT seen STREQUAL expected)
      message(FATAL_ERROR "${WORK}/${report}-${scheme}.seen is not as ${golden}/${report}.seen")
    endif()
    browse(${scheme} --window-size=1400,1800 --screenshot=${WORK}/${report}-${scheme}.png file://${WORK}/${report}.html)
  endforeach()
endforeach()
message("screenshots in ${WORK}")
