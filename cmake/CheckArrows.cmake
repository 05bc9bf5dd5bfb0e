# Holds the includes of every room against the arrows of the house. Run as
#   cmake -DROOT=<project root> -P CheckArrows.cmake

# Each room, then the starts of the paths that it may include.
set(ARROWS
  "model/language|model/language/"
  "model/validation|model/language/,model/validation/"
  "model/ports|model/language/,model/validation/,model/ports/"
  "model/cards|model/language/,model/validation/,model/cards/"
  "model/database|model/language/,model/validation/,model/database/"
  "model/hardware|model/language/,model/ports/,model/cards/,model/database/,model/hardware/"
  "model/scales|model/language/,model/validation/,model/scales/"
  "model/setpoints|model/language/,model/validation/,model/setpoints/"
  "model/tickets|model/language/,model/validation/,model/tickets/"
  "model/widgets|model/language/,model/validation/,model/widgets/"
  "model/junctionboxes|model/language/,model/validation/,model/junctionboxes/"
  "model/prompts|model/language/,model/validation/,model/prompts/"
  "model/general|model/language/,model/validation/,model/prompts/,model/general/"
  "model/document|model/"
  "platform|model/language/,platform/"
  "sim|model/language/,sim/"
  "comm|model/,comm/"
  "app|model/,platform/,comm/,app/"
  "cli|model/,platform/,comm/,sim/,app/,cli/"
  "ui|model/,platform/,comm/,sim/,app/,ui/")

set(wrong "")
set(sources "")
foreach(room model platform sim comm app cli ui)
  file(GLOB_RECURSE found RELATIVE ${ROOT} ${ROOT}/${room}/*.h ${ROOT}/${room}/*.cpp)
  list(APPEND sources ${found})
endforeach()

foreach(source IN LISTS sources)
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

  file(STRINGS ${ROOT}/${source} includes REGEX "^[ \t]*#[ \t]*include")
  foreach(include IN LISTS includes)
    if(include MATCHES "include[ \t]*\"([^\"]+)\"")
      set(path "${CMAKE_MATCH_1}")
      set(fits FALSE)
      foreach(start IN LISTS allowed)
        string(FIND "${path}" "${start}" at)
        if(at EQUAL 0)
          set(fits TRUE)
        endif()
      endforeach()
      if(NOT fits AND NOT path MATCHES "^moc_[a-z_]+\\.cpp$")
        list(APPEND wrong "${source} includes \"${path}\"")
      endif()
    elseif(include MATCHES "include[ \t]*<([^>]+)>")
      set(path "${CMAKE_MATCH_1}")
      # Libraries belong to one room or a few; the model has the standard library alone.
      if(path MATCHES "^(model|platform|sim|comm|app|cli|ui)/"
         OR (path MATCHES "^asio" AND NOT source MATCHES "^(comm|sim|platform)/")
         OR (path MATCHES "^Q" AND NOT source MATCHES "^ui/")
         OR (path MATCHES "^(nlohmann|CLI)/" AND NOT source MATCHES "^cli/")
         OR (path MATCHES "[./]" AND source MATCHES "^model/"))
        list(APPEND wrong "${source} includes <${path}>")
      endif()
    else()
      list(APPEND wrong "${source}: ${include}")
    endif()
  endforeach()
endforeach()

if(wrong)
  list(JOIN wrong "\n  " text)
  message(FATAL_ERROR "Arrows that the house does not have:\n  ${text}")
endif()
list(LENGTH sources count)
message(STATUS "${count} files keep to the arrows")
