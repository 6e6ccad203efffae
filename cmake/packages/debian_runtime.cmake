# cpack reads this file before it makes the Debian packages: dpkg-shlibdeps finds the packages that the library depends on.
set(folder ${CPACK_PACKAGE_DIRECTORY}/_CPack_Packages/needed)
file(WRITE ${folder}/debian/control "")
execute_process(COMMAND dpkg-shlibdeps -O -e${CPACK_KELPLIB_LIBRARY} WORKING_DIRECTORY ${folder}
    OUTPUT_VARIABLE needed ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "^shlibs:Depends=|\n" "" CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "${needed}")
