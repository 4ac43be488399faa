# Packs FOLDER into ZIP, with the files in the order of their names and all of one time (SOURCE_DATE_EPOCH's, where it is
# set). Run as a script with -DFOLDER and -DZIP.
include("${CMAKE_CURRENT_LIST_DIR}/../../cmake/PackZip.cmake")
cmake_path(GET FOLDER PARENT_PATH parent)
file(GLOB_RECURSE files RELATIVE "${parent}" "${FOLDER}/*")
string(TIMESTAMP time "%Y-%m-%d %H:%M:%S" UTC)
pack_zip("${ZIP}" "${parent}" "${time}" ${files})
