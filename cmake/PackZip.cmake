# pack_zip(zip folder time file...) packs files of the folder, in this order and all of one time (in UTC). Where the system
# has zip and touch, the same files give the same bytes; what CMake packs holds when each file was last read as well.
function(pack_zip zip folder time)
  find_program(ZIP_PROGRAM zip)
  find_program(TOUCH_PROGRAM touch)
  file(REMOVE "${zip}")
  if(ZIP_PROGRAM AND TOUCH_PROGRAM)
    list(JOIN ARGN "\n" names)
    file(WRITE "${zip}.names" "${names}\n")
    execute_process(COMMAND "${TOUCH_PROGRAM}" -d "${time} UTC" -- ${ARGN}
      WORKING_DIRECTORY "${folder}" COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND "${CMAKE_COMMAND}" -E env TZ=UTC "${ZIP_PROGRAM}" -q -X -@ "${zip}"
      INPUT_FILE "${zip}.names" WORKING_DIRECTORY "${folder}" COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE "${zip}.names")
  else()
    execute_process(COMMAND "${CMAKE_COMMAND}" -E tar cf "${zip}" --format=zip "--mtime=${time}" -- ${ARGN}
      WORKING_DIRECTORY "${folder}" COMMAND_ERROR_IS_FATAL ANY)
  endif()
endfunction()
