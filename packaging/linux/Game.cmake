# The component game: the program with its files, and what a desktop needs to show it and to open a saved game with it.
set(program_folder "${CMAKE_INSTALL_LIBDIR}/tarveth")

install(TARGETS tarveth RUNTIME DESTINATION "${program_folder}" COMPONENT game)
install(TARGETS tarveth_help_window LIBRARY DESTINATION "${program_folder}" COMPONENT game)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/pics" DESTINATION "${program_folder}" COMPONENT game
  FILES_MATCHING PATTERN "*.bmp" PATTERN "*.tps" PATTERN "*.png" PATTERN "source" EXCLUDE)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/sounds" DESTINATION "${program_folder}" COMPONENT game)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/servers.txt" DESTINATION "${program_folder}" COMPONENT game)
file(RELATIVE_PATH link_target "/${CMAKE_INSTALL_BINDIR}" "/${program_folder}/tarveth")
install(CODE "
  set(bin_folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  file(MAKE_DIRECTORY \"\${bin_folder}\")
  file(CREATE_LINK \"${link_target}\" \"\${bin_folder}/tarveth\" SYMBOLIC)
  list(APPEND CMAKE_INSTALL_MANIFEST_FILES \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/tarveth\")"
  COMPONENT game)

if(TARGET tarveth_help)
  foreach(file tarveth.hlp tarveth.cnt tarveth.htb)
    install(FILES "${PROJECT_BINARY_DIR}/bin/${file}" DESTINATION "${program_folder}" COMPONENT game)
  endforeach()
endif()
install_man_page(game tarveth.6)
install_completion(game tarveth)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${doc_folder}/tarveth" COMPONENT game)

install(FILES tarveth.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT game)
install(FILES tarveth.xml DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages" COMPONENT game)
# The same picture for the program and for a saved game.
function(install_icon size picture)
  cmake_path(GET picture EXTENSION ending)
  foreach(name "apps/tarveth" "mimetypes/application-x-tarveth-game")
    cmake_path(GET name PARENT_PATH folder)
    cmake_path(GET name FILENAME file)
    install(FILES "${PROJECT_SOURCE_DIR}/pics/${picture}" RENAME "${file}${ending}" COMPONENT game
      DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}/${folder}")
  endforeach()
endfunction()
foreach(size 16 32 48 64 128 256)
  install_icon(${size}x${size} tarveth-${size}.png)
endforeach()
install_icon(scalable source/tarveth.svg)

# What software centres show. The address is where the sources with their screenshots can be read.
set(TARVETH_HOMEPAGE "https://tarveth.example" CACHE STRING "Where the program is at home in the web")
set(metainfo "${CMAKE_CURRENT_BINARY_DIR}/org.tarveth.tarveth.metainfo.xml")
add_custom_command(
  OUTPUT "${metainfo}"
  COMMAND "${CMAKE_COMMAND}" "-DCHANGELOG=${PROJECT_SOURCE_DIR}/CHANGELOG.md" "-DOUTPUT=${metainfo}"
          "-DTEMPLATE=${CMAKE_CURRENT_SOURCE_DIR}/tarveth.metainfo.xml.in" "-DTARVETH_HOMEPAGE=${TARVETH_HOMEPAGE}"
          -P "${CMAKE_CURRENT_SOURCE_DIR}/MakeMetainfo.cmake"
  DEPENDS MakeMetainfo.cmake tarveth.metainfo.xml.in "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
  COMMENT "Describing the game for software centres"
  VERBATIM)
add_custom_target(tarveth_metainfo ALL DEPENDS "${metainfo}")
install(FILES "${metainfo}" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT game)
