# tarveth_lobby_libraries: what the lobby program takes from others, which is headers alone or nearly.
include(Asio)
add_library(tarveth_lobby_libraries INTERFACE)
target_link_libraries(tarveth_lobby_libraries INTERFACE tarveth_asio)

if(CMAKE_CROSSCOMPILING)
  include(BorrowedHeaders)
  borrow_headers(tarveth_lobby_libraries CLI spdlog fmt)
  target_compile_definitions(tarveth_lobby_libraries INTERFACE FMT_HEADER_ONLY SPDLOG_FMT_EXTERNAL)
else()
  find_package(CLI11 REQUIRED)
  find_package(spdlog REQUIRED)
  target_link_libraries(tarveth_lobby_libraries INTERFACE CLI11::CLI11 spdlog::spdlog)
endif()
