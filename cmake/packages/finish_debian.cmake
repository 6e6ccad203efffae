# cpack runs this before it makes the Debian packages, with the files of each component in a folder of its own. Adds what only
# Debian's packages contain, and compresses and strips what Debian wants so.
cmake_policy(VERSION 3.25)
foreach(name IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${name} component)
    set(package ${CPACK_DEBIAN_${component}_PACKAGE_NAME})
    set(share ${CPACK_TEMPORARY_DIRECTORY}/${name}/usr/share)
    file(COPY ${CPACK_KELPLIB_DEBIAN_FOLDER}/copyright ${CPACK_KELPLIB_DEBIAN_FOLDER}/changelog.gz
        DESTINATION ${share}/doc/${package})
    if(EXISTS ${CMAKE_CURRENT_LIST_DIR}/lintian/${package})
        file(COPY ${CMAKE_CURRENT_LIST_DIR}/lintian/${package} DESTINATION ${share}/lintian/overrides)
    endif()
endforeach()

set(documents ${CPACK_TEMPORARY_DIRECTORY}/documentation/usr/share)
if(EXISTS ${documents}/doc/kelplib/html)
    file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/debian-doc-base ${CPACK_KELPLIB_DEBIAN_FOLDER}/libkelplib-doc.kelplib)
    file(COPY ${CPACK_KELPLIB_DEBIAN_FOLDER}/libkelplib-doc.kelplib DESTINATION ${documents}/doc-base)
endif()
# Debian keeps licences in the file copyright.
file(REMOVE ${documents}/doc/kelplib/LICENSE)
file(READ ${documents}/doc/kelplib/README.md text)
string(REPLACE "](LICENSE)" "](../libkelplib-doc/copyright)" text "${text}")
file(WRITE ${documents}/doc/kelplib/README.md "${text}")

execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -path */share/man/* -type f -exec gzip -9 -n {} +
    COMMAND_ERROR_IS_FATAL ANY)
# Programs and shared libraries lose their debugging information to the component NAME_dbgsym, where debuggers find it by the
# build ID. CPACK_DEBIAN_DEBUGINFO_PACKAGE (seen with CMake 3.25) would write paths of this machine into the list of checksums.
# strip keeps the names that linking with a static library needs.
foreach(name IN LISTS CPACK_COMPONENTS_ALL)
    file(GLOB_RECURSE files ${CPACK_TEMPORARY_DIRECTORY}/${name}/usr/bin/* ${CPACK_TEMPORARY_DIRECTORY}/${name}/usr/lib/*)
    foreach(file IN LISTS files)
        if(IS_SYMLINK ${file})
            continue()
        elseif(file MATCHES "\\.a$")
            execute_process(COMMAND strip -D --strip-debug --remove-section=.comment ${file} COMMAND_ERROR_IS_FATAL ANY)
        elseif("${name}_dbgsym" IN_LIST CPACK_COMPONENTS_ALL AND file MATCHES "/bin/|\\.so(\\.|$)")
            execute_process(COMMAND readelf -n ${file} OUTPUT_VARIABLE notes COMMAND_ERROR_IS_FATAL ANY)
            if(NOT notes MATCHES "Build ID: ([0-9a-f][0-9a-f])([0-9a-f]+)")
                message(FATAL_ERROR "${file} has no build ID.")
            endif()
            set(folder ${CPACK_TEMPORARY_DIRECTORY}/${name}_dbgsym/usr/lib/debug/.build-id/${CMAKE_MATCH_1})
            set(debug_file ${folder}/${CMAKE_MATCH_2}.debug)
            file(MAKE_DIRECTORY ${folder})
            execute_process(COMMAND objcopy --only-keep-debug --compress-debug-sections ${file} ${debug_file}
                COMMAND_ERROR_IS_FATAL ANY)
            execute_process(COMMAND chmod 644 ${debug_file} COMMAND_ERROR_IS_FATAL ANY)
            execute_process(COMMAND strip --remove-section=.comment ${file} COMMAND_ERROR_IS_FATAL ANY)
        endif()
    endforeach()
endforeach()
