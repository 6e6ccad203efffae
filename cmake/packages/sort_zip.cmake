# cpack runs this after it has made the zip: packs the same files again, sorted by name, because cpack takes them in the
# order of the file system.
get_filename_component(top ${CPACK_TEMPORARY_DIRECTORY} DIRECTORY)
file(GLOB_RECURSE files RELATIVE ${top} ${CPACK_TEMPORARY_DIRECTORY}/*)
string(REPLACE ";" "\n" lines "${files}")
file(WRITE ${top}/files.txt "${lines}\n")
execute_process(COMMAND ${CMAKE_COMMAND} -E tar cf ${CPACK_PACKAGE_FILES} --format=zip --files-from=${top}/files.txt
    WORKING_DIRECTORY ${top} COMMAND_ERROR_IS_FATAL ANY)
