# The building system's headers of some libraries serve any target, but the folder that they are in holds the
# system's own as well. So they are linked into a folder of theirs.
set(HEADERS_TO_BORROW /usr/include CACHE PATH "Folder that holds the headers of Asio, CLI11, spdlog and fmt")

# borrow_headers(target name...): the target includes these files and folders of headers.
function(borrow_headers target)
  set(folder "${PROJECT_BINARY_DIR}/${target}-headers")
  file(MAKE_DIRECTORY "${folder}")
  foreach(header ${ARGN})
    if(NOT EXISTS "${HEADERS_TO_BORROW}/${header}")
      message(FATAL_ERROR "${HEADERS_TO_BORROW}/${header} is missing")
    endif()
    file(CREATE_LINK "${HEADERS_TO_BORROW}/${header}" "${folder}/${header}" SYMBOLIC)
  endforeach()
  target_include_directories(${target} SYSTEM INTERFACE "${folder}")
endfunction()
