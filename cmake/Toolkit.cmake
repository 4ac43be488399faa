# tarveth_toolkit: wxWidgets, for the windows alone.
include_guard(GLOBAL)

if(WIN32)
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS html core base) # the help window is in the program
else()
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
endif()
add_library(tarveth_toolkit INTERFACE)
target_include_directories(tarveth_toolkit SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
target_compile_definitions(tarveth_toolkit INTERFACE ${wxWidgets_DEFINITIONS})
target_compile_options(tarveth_toolkit INTERFACE ${wxWidgets_CXX_FLAGS})
target_link_libraries(tarveth_toolkit INTERFACE ${wxWidgets_LIBRARIES})
