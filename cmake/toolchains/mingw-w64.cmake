# Builds for 64-bit Windows on another system, with mingw-w64. The programs need no library beside them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
# Without the time at which they are linked, the same sources give the same programs.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
set(CMAKE_EXE_LINKER_FLAGS_RELEASE_INIT -s)

# Nothing of the building system is taken for a library of the target's.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The window's toolkit, from where tools/build-wx-windows has put it.
if(TARVETH_WX)
  list(APPEND CMAKE_FIND_ROOT_PATH "${TARVETH_WX}")
  set(wxWidgets_CONFIG_EXECUTABLE "${TARVETH_WX}/bin/wx-config" CACHE FILEPATH "The toolkit's own description")
endif()
