if(TARVETH_SANITIZE)
  add_compile_options(-fsanitize=${TARVETH_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TARVETH_SANITIZE})
endif()
