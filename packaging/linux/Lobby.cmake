# The component lobby: the server, the operator's tool and their services.
install(TARGETS tarveth-lobby RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT lobby)
install(TARGETS tarveth-lobby-ctl RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT lobby)
install_man_page(lobby tarveth-lobby.8)
install_man_page(lobby tarveth-lobby-ctl.8)
install_completion(lobby tarveth-lobby)
install_completion(lobby tarveth-lobby-ctl)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${doc_folder}/tarveth-lobby" COMPONENT lobby)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/lobby/tarveth-lobby.conf" DESTINATION "${CMAKE_INSTALL_SYSCONFDIR}"
  COMPONENT lobby)

# The services, with the folders of this installation in place of those that they are written for.
foreach(name tarveth-lobby.service tarveth-lobby-figures.service tarveth-lobby-figures.timer)
  set(shipped "${PROJECT_SOURCE_DIR}/packaging/lobby/${name}")
  set(unit "${CMAKE_CURRENT_BINARY_DIR}/${name}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${shipped}")
  file(READ "${shipped}" text)
  string(REPLACE "/usr/local/bin/" "${CMAKE_INSTALL_FULL_BINDIR}/" text "${text}")
  string(REPLACE "/etc/" "${CMAKE_INSTALL_FULL_SYSCONFDIR}/" text "${text}")
  file(WRITE "${unit}" "${text}")
  install(FILES "${unit}" DESTINATION lib/systemd/system COMPONENT lobby)
endforeach()
