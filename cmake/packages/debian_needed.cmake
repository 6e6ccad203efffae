# cpack reads this file before it makes the Debian packages. Writes what their folders and control files contain into
# CPACK_KELPLIB_DEBIAN_FOLDER, and finds the packages that the library, the kit's programs and the examples depend on.
set(folder ${CPACK_PACKAGE_DIRECTORY}/_CPack_Packages/needed)
file(WRITE ${folder}/debian/control "")

# Fails if the library has other names than the list. In a new version of the library, new names get that version.
execute_process(COMMAND dpkg-gensymbols -c4 -q -p${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} -v${CPACK_PACKAGE_VERSION}
    -e${CPACK_KELPLIB_LIBRARY} -I${CMAKE_CURRENT_LIST_DIR}/debian-symbols -O${CPACK_KELPLIB_DEBIAN_FOLDER}/symbols
    WORKING_DIRECTORY ${folder} COMMAND_ERROR_IS_FATAL ANY)

execute_process(COMMAND python3 -B ${CMAKE_CURRENT_LIST_DIR}/debian_changelog.py ${CPACK_KELPLIB_CHANGELOG}
    ${CPACK_PACKAGE_CONTACT} OUTPUT_FILE ${CPACK_KELPLIB_DEBIAN_FOLDER}/changelog COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND gzip -9nf ${CPACK_KELPLIB_DEBIAN_FOLDER}/changelog COMMAND_ERROR_IS_FATAL ANY)

# find_needed(VARIABLE FILE...): sets the variable to what the files depend on. The library itself is in no package yet.
function(find_needed variable)
    list(TRANSFORM ARGN PREPEND -e OUTPUT_VARIABLE files)
    execute_process(COMMAND dpkg-shlibdeps -O --ignore-missing-info ${files} WORKING_DIRECTORY ${folder}
        OUTPUT_VARIABLE needed ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "^shlibs:Depends=|\n" "" needed "${needed}")
    set(${variable} ${needed} PARENT_SCOPE)
endfunction()

find_needed(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS ${CPACK_KELPLIB_LIBRARY})
if(CPACK_KELPLIB_PROGRAMS)
    find_needed(needed ${CPACK_KELPLIB_PROGRAMS})
    string(APPEND CPACK_DEBIAN_KIT_PACKAGE_DEPENDS ", ${needed}")
endif()
if(CPACK_KELPLIB_EXAMPLES)
    find_needed(needed ${CPACK_KELPLIB_EXAMPLES})
    string(APPEND CPACK_DEBIAN_EXAMPLES_PACKAGE_DEPENDS ", ${needed}")
endif()
