# Holds the includes of every room against the arrows of the house. Run as
#   cmake -DROOT=<project root> -P CheckArrows.cmake
# Each room: what it may include, as the starts of paths from the root.

set(ARROWS
  "model/language|model/language/"
  "model/validation|model/language/,model/validation/"
  "model/kept|model/language/,model/kept/"
  "model/general|model/language/,model/validation/,model/kept/,model/general/"
  "model/document|model/"
  "platform|model/language/,platform/"
  "sim|model/language/,sim/"
  "comm|model/,comm/"
  "app|model/,platform/,comm/,app/"
  "cli|model/,platform/,comm/,sim/,app/,cli/"
  "ui|model/,platform/,comm/,sim/,app/,ui/")

set(wrong "")
file(GLOB_RECURSE headers RELATIVE ${ROOT} ${ROOT}/model/*.h ${ROOT}/model/*.cpp ${ROOT}/platform/*.h
  ${ROOT}/platform/*.cpp ${ROOT}/sim/*.h ${ROOT}/sim/*.cpp ${ROOT}/comm/*.h ${ROOT}/comm/*.cpp ${ROOT}/app/*.h
  ${ROOT}/app/*.cpp ${ROOT}/cli/*.h ${ROOT}/cli/*.cpp ${ROOT}/ui/*.h ${ROOT}/ui/*.cpp)
foreach(source IN LISTS headers)
  set(allowed "")
  foreach(arrow IN LISTS ARROWS)
    string(REPLACE "|" ";" parts "${arrow}")
    list(GET parts 0 room)
    list(GET parts 1 starts)
    if(source MATCHES "^${room}/")
      string(REPLACE "," ";" allowed "${starts}")
    endif()
  endforeach()
  if(NOT allowed)
    list(APPEND wrong "${source} stands in no known room")
    continue()
  endif()
  file(STRINGS ${ROOT}/${source} includes REGEX "^#include ")
  foreach(include IN LISTS includes)
    if(include MATCHES "^#include \"([^\"]+)\"")
      set(path "${CMAKE_MATCH_1}")
      set(fits FALSE)
      foreach(start IN LISTS allowed)
        string(FIND "${path}" "${start}" at)
        if(at EQUAL 0)
          set(fits TRUE)
        endif()
      endforeach()
      if(NOT fits AND path MATCHES "/")
        list(APPEND wrong "${source} includes ${path}")
      endif()
    elseif(include MATCHES "^#include <([A-Za-z0-9_]+)")  # libraries that belong to one room
      set(library "${CMAKE_MATCH_1}")
      if(library MATCHES "^(asio)$" AND NOT source MATCHES "^(comm|sim|platform)/"
         OR library MATCHES "^Q[A-Z]" AND NOT source MATCHES "^ui/"
         OR library MATCHES "^(nlohmann|CLI)$" AND NOT source MATCHES "^cli/")
        list(APPEND wrong "${source} includes <${library}>")
      endif()
    endif()
  endforeach()
endforeach()

if(wrong)
  list(JOIN wrong "\n  " text)
  message(FATAL_ERROR "Arrows that the house does not have:\n  ${text}")
endif()
list(LENGTH headers count)
message(STATUS "${count} files keep to the arrows")
