# cmake -DROOT=... -P check_includes.cmake
# Demands that includes run down the list of rooms: a file includes from its own room and from those below it, a
# header from no room above. Sources that need a class of a room above, since the two know each other, are listed.
# Rooms of one line stand beside each other and do not know one another.
cmake_minimum_required(VERSION 3.25)
set(plugin_rooms
  src/entry src/events src/discovery src/sdo src/model src/mvlayer src/vendor src/support)
set(devkit_rooms
  devkit/zarnekctl/cli devkit/zarnekctl/report devkit/zarnekctl/monitor devkit/zarnekctl/print devkit/zarnekctl/host
  devkit/zarnekctl/config
  devkit/mvsim/api|devkit/mvhostile devkit/mvsim/scenario|devkit/mvsim/live devkit/mvsim/model
  devkit/ral devkit/morlan|devkit/queue devkit/common)
set(upward
  "src/discovery/CMarvelSubSystemMgr.cpp events/CMarvelEventManager.h"
  "src/discovery/ISubSystemManager.cpp entry/CCommandHandler.h"
  "src/discovery/ISubSystemManager.cpp events/IEventManager.h"
  "src/model/EngineSearch.cpp sdo/SDOProxy.h"
  "src/model/IController.cpp sdo/SDOProxy.h"
  "src/mvlayer/CMVLibraryInterfaceLayerQueries.cpp events/CMarvelAlert.h"
  "src/mvlayer/CMVLibraryInterfaceLayerQueries.cpp model/CPhysicalDevice.h"
  "src/mvlayer/CMVLibraryInterfaceLayerQueries.cpp model/CVirtualDevice.h"
  "src/mvlayer/CMVLibraryInterfaceLayerQueries.cpp model/IController.h"
  "src/sdo/SDOProxy.cpp events/CAlert.h"
  "src/sdo/SDOProxy.cpp events/CControl_Notify.h"
  "src/vendor/CLibraryManager_Helper.cpp mvlayer/CMVLibraryInterfaceLayer.h")

# The line of a file's room in the list; empty where it has none.
function(line_of file rooms result)
  get_filename_component(folder ${file} DIRECTORY)
  set(line "")
  set(number 0)
  foreach(beside ${rooms})
    math(EXPR number "${number} + 1")
    string(REPLACE "|" ";" beside "${beside}")
    if(folder IN_LIST beside)
      set(line ${number})
    endif()
  endforeach()
  set(${result} "${line}" PARENT_SCOPE)
endfunction()

set(wrong "")
set(seen "")
foreach(tree src devkit)
  set(rooms ${plugin_rooms})
  if(tree STREQUAL "devkit")
    set(rooms ${devkit_rooms})
  endif()
  file(GLOB_RECURSE files RELATIVE ${ROOT} ${ROOT}/${tree}/*.h ${ROOT}/${tree}/*.cpp)
  foreach(file ${files})
    line_of(${file} "${rooms}" own)
    if(own STREQUAL "")
      list(APPEND wrong "${file} stands in no room of the list")
      continue()
    endif()
    file(STRINGS ${ROOT}/${file} lines REGEX "^#include \"")
    foreach(line ${lines})
      string(REGEX REPLACE "^#include \"(.*)\".*" "\\1" included "${line}")
      line_of(${tree}/${included} "${rooms}" other)
      get_filename_component(folder ${file} DIRECTORY)
      get_filename_component(other_folder ${tree}/${included} DIRECTORY)
      if(other STREQUAL "")
        list(APPEND wrong "${file} includes ${included}, which is in no room of ${tree}")
      elseif(other LESS own OR (other EQUAL own AND NOT folder STREQUAL other_folder))
        if("${file} ${included}" IN_LIST upward)
          list(APPEND seen "${file} ${included}")
        else()
          list(APPEND wrong "${file} includes ${included}, from a room above its own or beside it")
        endif()
      endif()
    endforeach()
  endforeach()
endforeach()
foreach(pair ${upward})
  if(NOT pair IN_LIST seen)
    list(APPEND wrong "${pair}: listed, but not there any more")
  endif()
endforeach()
if(wrong)
  list(JOIN wrong "\n  " wrong)
  message(FATAL_ERROR "includes against the order of rooms:\n  ${wrong}")
endif()
