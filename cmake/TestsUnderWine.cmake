# Tests of Windows programs on another system: GoogleTest from the distribution's sources, and Wine to run them, in a
# Windows of this build's own. Each test program is one ctest, since starting a program takes longer than its tests.
set(GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "Folder that holds the sources of GoogleTest")
find_program(WINE NAMES wine64 wine64-stable PATHS /usr/lib/wine REQUIRED)

set(BUILD_GMOCK OFF CACHE INTERNAL "")
set(INSTALL_GTEST OFF CACHE INTERNAL "")
block()
  set(CMAKE_COMPILE_WARNING_AS_ERROR OFF) # its warnings are not ours
  add_subdirectory("${GOOGLETEST_SOURCE}/googletest" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
endblock()
foreach(library gtest gtest_main)
  if(NOT TARGET GTest::${library})
    add_library(GTest::${library} ALIAS ${library})
  endif()
endforeach()

# Its own files, no questions about programs that the tests do not need, and letters of every language in file names.
set(wine_environment "WINEPREFIX=${PROJECT_BINARY_DIR}/wine" "WINEDEBUG=-all" "WINEDLLOVERRIDES=mscoree,mshtml="
  "LC_ALL=C.UTF-8")
add_test(NAME wine/start COMMAND "${PROJECT_SOURCE_DIR}/tests/wine/start" "${WINE}")
add_test(NAME wine/stop COMMAND "${PROJECT_SOURCE_DIR}/tests/wine/stop")
set_tests_properties(wine/start PROPERTIES FIXTURES_SETUP wine ENVIRONMENT "${wine_environment}" TIMEOUT 300)
set_tests_properties(wine/stop PROPERTIES FIXTURES_CLEANUP wine ENVIRONMENT "${wine_environment}")

# add_wine_test(name program): the whole program is one test.
function(add_wine_test name program)
  add_test(NAME ${name} COMMAND "${WINE}" $<TARGET_FILE:${program}> --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES
    FIXTURES_REQUIRED wine ENVIRONMENT "${wine_environment}" TIMEOUT 600)
endfunction()
