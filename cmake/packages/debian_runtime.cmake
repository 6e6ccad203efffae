# cpack reads this file before it makes the Debian packages: dpkg-shlibdeps finds the packages that the library, the kit's
# programs and the examples depend on.
set(folder ${CPACK_PACKAGE_DIRECTORY}/_CPack_Packages/needed)
file(WRITE ${folder}/debian/control "")

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
