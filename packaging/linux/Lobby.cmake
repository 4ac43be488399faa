# The component lobby: the server and its service.
install(TARGETS tarveth-lobby RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT lobby)
install_man_page(lobby tarveth-lobby.8)
install_completion(lobby tarveth-lobby)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${doc_folder}/tarveth-lobby" COMPONENT lobby)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/lobby/tarveth-lobby.conf" DESTINATION "${CMAKE_INSTALL_SYSCONFDIR}"
  COMPONENT lobby)

# The service, with the folders of this installation in place of those that it is written for.
set(unit "${CMAKE_CURRENT_BINARY_DIR}/tarveth-lobby.service")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  "${PROJECT_SOURCE_DIR}/packaging/lobby/tarveth-lobby.service")
file(READ "${PROJECT_SOURCE_DIR}/packaging/lobby/tarveth-lobby.service" text)
string(REPLACE "/usr/local/bin/" "${CMAKE_INSTALL_FULL_BINDIR}/" text "${text}")
string(REPLACE "/etc/" "${CMAKE_INSTALL_FULL_SYSCONFDIR}/" text "${text}")
file(WRITE "${unit}" "${text}")
install(FILES "${unit}" DESTINATION lib/systemd/system COMPONENT lobby)
