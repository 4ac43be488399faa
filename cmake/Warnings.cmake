# Every target of ours links this; code of libraries never does.
add_library(tarveth_warnings INTERFACE)
target_compile_options(tarveth_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
