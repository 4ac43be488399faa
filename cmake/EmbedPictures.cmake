# Turns bitmap files into byte arrays that the program carries in itself. Needs nothing but CMake.
#
#   embed_pictures(<target> <header> <picture>...)
#
# makes a target that writes <header> anew whenever a picture changes. The array of blue1.bmp is called kBlue1.
# CMake runs this same file as a script to write the header.

if(CMAKE_SCRIPT_MODE_FILE)
  set(text "#pragma once\n\n#include <cstdint>\n\nnamespace tarveth {\n\n")
  foreach(picture IN LISTS PICTURES)
    get_filename_component(name "${picture}" NAME_WE)
    string(SUBSTRING "${name}" 0 1 initial)
    string(TOUPPER "${initial}" initial)
    string(SUBSTRING "${name}" 1 -1 rest)

    file(READ "${picture}" bytes HEX)
    string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
    string(APPEND text "inline constexpr std::uint8_t k${initial}${rest}[] = {${bytes}};\n\n")
  endforeach()
  string(APPEND text "} // namespace tarveth\n")
  file(WRITE "${HEADER}" "${text}")
  return()
endif()

set(EMBED_PICTURES_SCRIPT "${CMAKE_CURRENT_LIST_FILE}")

function(embed_pictures target header)
  list(JOIN ARGN "$<SEMICOLON>" pictures)
  add_custom_command(
    OUTPUT "${header}"
    COMMAND "${CMAKE_COMMAND}" "-DHEADER=${header}" "-DPICTURES=${pictures}" -P "${EMBED_PICTURES_SCRIPT}"
    DEPENDS ${ARGN} "${EMBED_PICTURES_SCRIPT}"
    COMMENT "Embedding the built-in piece pictures"
    VERBATIM)
  add_custom_target(${target} DEPENDS "${header}")
endfunction()
