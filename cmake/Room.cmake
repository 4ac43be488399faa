# A room of the source tree: one library, with what it may use.
include_guard(GLOBAL)

# Where the sources and the generated headers are found.
add_library(tarveth_sources INTERFACE)
target_include_directories(tarveth_sources INTERFACE
  "${PROJECT_SOURCE_DIR}"
  "${PROJECT_BINARY_DIR}/generated")

# tarveth_room(name FILES file... USES target...) makes the library tarveth_<name>. What it uses is what its headers
# show, so that whoever uses the room gets it too. tools/check-rooms holds the includes against the same arrows.
function(tarveth_room name)
  cmake_parse_arguments(ROOM "" "" "FILES;USES" ${ARGN})
  add_library(tarveth_${name} STATIC EXCLUDE_FROM_ALL ${ROOM_FILES})
  target_link_libraries(tarveth_${name} PUBLIC tarveth_sources ${ROOM_USES} PRIVATE tarveth_warnings)
endfunction()
