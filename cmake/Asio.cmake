# tarveth_asio: the sockets of the game and of the lobby; headers alone.
include_guard(GLOBAL)
include(BorrowedHeaders)

find_package(Threads REQUIRED)
add_library(tarveth_asio INTERFACE)
target_link_libraries(tarveth_asio INTERFACE Threads::Threads)
if(CMAKE_CROSSCOMPILING)
  borrow_headers(tarveth_asio asio.hpp asio)
else()
  find_path(ASIO_HEADERS asio.hpp REQUIRED)
  target_include_directories(tarveth_asio SYSTEM INTERFACE "${ASIO_HEADERS}")
endif()
if(TARVETH_SANITIZE MATCHES "thread")
  target_compile_definitions(tarveth_asio INTERFACE ASIO_DISABLE_FENCED_BLOCK) # ThreadSanitizer knows no fences
endif()
if(WIN32)
  # Windows 10, and select in place of completion ports: the lobby waits until its acceptor is ready, and with
  # completion ports Asio does that by reading from it, which is an error.
  target_compile_definitions(tarveth_asio INTERFACE
    _WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX ASIO_DISABLE_IOCP)
  target_link_libraries(tarveth_asio INTERFACE ws2_32 mswsock)
endif()
