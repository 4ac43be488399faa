cmake_minimum_required(VERSION 3.25)

# cmake -DHALIBUT=… -DSOURCE=… -DWORK=… -DTO=… -DCHAPTERS=… -DVERSION=… -P MakeManual.cmake
#
# A line "\diagram{name}" in a chapter becomes the diagram's fixed-width text in tarveth.hlp and the man page, and its
# picture in the HTML: halibut itself carries none, so the HTML gets a placeholder that is replaced afterwards.
# "\picture{name}" is for the HTML alone.

set(diagrams "${WORK}/diagrams")

# write_chapters(FOLDER KIND): the chapters with their diagrams as text or as placeholders (KIND picture).
function(write_chapters folder kind)
  file(MAKE_DIRECTORY "${folder}")
  foreach(chapter IN LISTS CHAPTERS)
    file(READ "${SOURCE}/${chapter}" text)
    string(REGEX MATCHALL "\\\\(diagram|picture){[a-z-]+}" uses "${text}")
    foreach(use IN LISTS uses)
      string(REGEX REPLACE ".*{(.*)}" "\\1" name "${use}")
      if(kind STREQUAL "picture")
        set(drawn "(diagram:${name})")
      elseif(use MATCHES "picture")
        set(drawn "")
      else()
        file(READ "${diagrams}/${name}.txt" drawn)
        string(REGEX REPLACE "\n$" "" drawn "${drawn}")
        string(REPLACE "\n" "\n\\c " drawn "\\c ${drawn}")
      endif()
      string(REPLACE "${use}" "${drawn}" text "${text}")
    endforeach()
    file(WRITE "${folder}/${chapter}" "${text}")
  endforeach()
  foreach(other tarveth.but man.but)
    file(READ "${SOURCE}/${other}" text)
    string(REPLACE "@VERSION@" "${VERSION}" text "${text}")
    file(WRITE "${folder}/${other}" "${text}")
  endforeach()
endfunction()

function(run_halibut folder)
  execute_process(COMMAND "${HALIBUT}" ${ARGN} WORKING_DIRECTORY "${folder}" RESULT_VARIABLE status
                  ERROR_VARIABLE complaints)
  if(NOT status EQUAL 0 OR complaints)
    message(FATAL_ERROR "halibut: ${complaints}")
  endif()
endfunction()

# Puts the pictures in.
function(insert_pictures page)
  file(READ "${page}" text)
  string(REGEX MATCHALL "\\(diagram:[a-z-]+\\)" uses "${text}")
  foreach(use IN LISTS uses)
    string(REGEX REPLACE "\\(diagram:(.*)\\)" "\\1" name "${use}")
    file(READ "${diagrams}/${name}.alt" title)
    string(STRIP "${title}" title)
    set(tag "<img src=\"${name}.png\" alt=\"${title}\">")
    string(REPLACE "${use}" "${tag}" text "${text}")
    get_filename_component(folder "${page}" DIRECTORY)
    configure_file("${diagrams}/${name}.png" "${folder}/${name}.png" COPYONLY)
  endforeach()
  file(WRITE "${page}" "${text}")
endfunction()

file(REMOVE_RECURSE "${WORK}/text" "${WORK}/html")
write_chapters("${WORK}/text" text)
write_chapters("${WORK}/html" picture)
file(MAKE_DIRECTORY "${TO}")
run_halibut("${WORK}/text" --winhelp=tarveth.hlp tarveth.but ${CHAPTERS})
run_halibut("${WORK}/text" --man=tarveth.6 tarveth.but man.but ${CHAPTERS})
run_halibut("${WORK}/html" --html tarveth.but ${CHAPTERS})

file(GLOB pages "${WORK}/html/*.html")
foreach(page IN LISTS pages)
  insert_pictures("${page}")
endforeach()
file(GLOB book RELATIVE "${WORK}/html" "${WORK}/html/*.html" "${WORK}/html/*.png" "${WORK}/html/tarveth.hh?")
list(SORT book)
execute_process(
  COMMAND "${CMAKE_COMMAND}" -E tar cf "${TO}/tarveth.htb" --format=zip "--mtime=2026-01-01 00:00:00" -- ${book}
  WORKING_DIRECTORY "${WORK}/html" COMMAND_ERROR_IS_FATAL ANY)
file(COPY "${WORK}/text/tarveth.hlp" "${WORK}/text/tarveth.cnt" "${WORK}/text/tarveth.6" DESTINATION "${TO}")
foreach(file tarveth.hlp tarveth.cnt tarveth.6)
  file(TOUCH "${TO}/${file}")
endforeach()
