# Every target of ours links this; code of libraries never does. Warnings are errors only where a preset for developers
# sets CMAKE_COMPILE_WARNING_AS_ERROR: a compiler we have not seen may warn, and must still build the game.
add_library(tarveth_warnings INTERFACE)
target_compile_options(tarveth_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies inside std::string's operator+ (its bug 105329).
  target_compile_options(tarveth_warnings INTERFACE -Wno-restrict)
endif()
