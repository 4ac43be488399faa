# tarveth_lobby_libraries: what the lobby program takes from others, which is headers alone or nearly.
add_library(tarveth_lobby_libraries INTERFACE)
find_package(Threads REQUIRED)
target_link_libraries(tarveth_lobby_libraries INTERFACE Threads::Threads)

if(NOT CMAKE_CROSSCOMPILING)
  find_package(CLI11 REQUIRED)
  find_package(spdlog REQUIRED)
  target_link_libraries(tarveth_lobby_libraries INTERFACE CLI11::CLI11 spdlog::spdlog)
  return()
endif()

# The building system's headers of these libraries serve any target, but the folder that they are in holds the
# system's own as well. So they are linked into a folder of theirs.
set(LOBBY_HEADERS /usr/include CACHE PATH "Folder that holds the headers of Asio, CLI11, spdlog and fmt")
set(lobby_headers "${PROJECT_BINARY_DIR}/lobby-headers")
file(MAKE_DIRECTORY "${lobby_headers}")
foreach(header asio.hpp asio CLI spdlog fmt)
  if(NOT EXISTS "${LOBBY_HEADERS}/${header}")
    message(FATAL_ERROR "${LOBBY_HEADERS}/${header} is missing")
  endif()
  file(CREATE_LINK "${LOBBY_HEADERS}/${header}" "${lobby_headers}/${header}" SYMBOLIC)
endforeach()
target_include_directories(tarveth_lobby_libraries SYSTEM INTERFACE "${lobby_headers}")
target_compile_definitions(tarveth_lobby_libraries INTERFACE FMT_HEADER_ONLY SPDLOG_FMT_EXTERNAL)
if(WIN32)
  # Windows 10, and select in place of completion ports: the lobby waits until its acceptor is ready, and with
  # completion ports Asio does that by reading from it, which is an error.
  target_compile_definitions(tarveth_lobby_libraries INTERFACE
    _WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX ASIO_DISABLE_IOCP)
  target_link_libraries(tarveth_lobby_libraries INTERFACE ws2_32 mswsock)
endif()
