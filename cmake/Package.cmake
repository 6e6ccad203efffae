# Settings for cpack, which scripts/package calls: Debian packages on Linux, a zip for Windows.
set(CPACK_PACKAGE_NAME kelplib)
set(CPACK_PACKAGE_VENDOR "The kelplib authors")
set(CPACK_PACKAGE_CONTACT "The kelplib authors <kelplib@packages.invalid>" CACHE STRING "Maintainer of the packages")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL runtime development documentation)
if(KELPLIB_BUILD_KIT)
    list(APPEND CPACK_COMPONENTS_ALL kit)
endif()
# Without a prefix, their names clash with those of other packages: convert is a program of ImageMagick.
if(KELPLIB_BUILD_EXAMPLES AND KELPLIB_EXAMPLE_PREFIX)
    list(APPEND CPACK_COMPONENTS_ALL examples)
endif()
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# All files get the same date, so that the packages are reproducible.
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/packages/set_dates.cmake)
# Files that cpack generates for the Debian packages.
set(CPACK_KELPLIB_DEBIAN_FOLDER ${CMAKE_CURRENT_BINARY_DIR}/debian)

if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_STRIP_FILES ON)
    set(CPACK_PACKAGE_FILE_NAME kelplib-${PROJECT_VERSION}-windows-x86_64)
    set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/packages/sort_zip.cmake)
    include(cmake/packages/windows_zip.cmake)
    include(CPack)
    return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
list(PREPEND CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/packages/finish_debian.cmake)

set(runtime_package libkelplib${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# cpack's CPACK_DEBIAN_PACKAGE_SHLIBDEPS would also add scripts that call ldconfig; Debian uses a trigger instead.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/packages/debian_needed.cmake)
set(CPACK_KELPLIB_LIBRARY ${CMAKE_CURRENT_BINARY_DIR}/libkelplib.so.${PROJECT_VERSION})
configure_file(cmake/packages/debian-shlibs.in debian/shlibs @ONLY)
file(WRITE ${CPACK_KELPLIB_DEBIAN_FOLDER}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CPACK_KELPLIB_DEBIAN_FOLDER}/shlibs ${CPACK_KELPLIB_DEBIAN_FOLDER}/symbols
    ${CPACK_KELPLIB_DEBIAN_FOLDER}/triggers)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "Options, help, checks of the command line, typed values, output paths and
progress on the console, the same for a whole family of tools.
This package contains the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkelplib-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime_package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS libkelplib-doc)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "The headers, and the files with which CMake and pkg-config
link a tool with the shared library.")

set(CPACK_DEBIAN_KIT_PACKAGE_NAME kelplib-kit)
set(CPACK_DEBIAN_KIT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_KIT_PACKAGE_DEPENDS "libkelplib-dev (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_KIT_PACKAGE_SUGGESTS libkelplib-doc)
get_property(programs GLOBAL PROPERTY KELPLIB_PROGRAMS)
list(TRANSFORM programs PREPEND ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/ OUTPUT_VARIABLE CPACK_KELPLIB_PROGRAMS)
set(CPACK_DEBIAN_KIT_DESCRIPTION "A strict command line, output files that appear whole or not at all, and
progress on the console, on top of the shared library.
This package contains a static library, its headers, the files with which
CMake and pkg-config build a tool, a project to copy, and the programs
kelp-doc, which writes completions and a man page for a tool, and
kelp-check, which checks its definition.")

set(CPACK_DEBIAN_EXAMPLES_PACKAGE_NAME kelplib-examples)
set(CPACK_DEBIAN_EXAMPLES_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_EXAMPLES_PACKAGE_DEPENDS "${runtime_package} (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_EXAMPLES_PACKAGE_SUGGESTS libkelplib-doc)
get_property(examples GLOBAL PROPERTY KELPLIB_EXAMPLES)
list(TRANSFORM examples PREPEND ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/ OUTPUT_VARIABLE CPACK_KELPLIB_EXAMPLES)
set(CPACK_DEBIAN_EXAMPLES_DESCRIPTION "The example tools, each with its man page and its completions for
bash, zsh and fish. Their names begin with kelplib-: kelplib-fragment cuts
files and joins them again, kelplib-histogram draws the numbers of a table,
kelplib-tally counts lines; kelplib-checksum, kelplib-convert and
kelplib-sequence are small ones. The sources are in libkelplib-doc.")

set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME libkelplib-doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SUGGESTS libkelplib-dev)
set(CPACK_DEBIAN_DOCUMENTATION_DESCRIPTION "How to write a tool with the shared library and the kit: the guide,
the reference, and the sources of the example tools.")

include(cmake/packages/debian_python.cmake)

# Packages with the debugging information of these components.
set(with_programs runtime kit examples)
foreach(name IN LISTS with_programs)
    if(name IN_LIST CPACK_COMPONENTS_ALL)
        string(TOUPPER ${name} component)
        set(package ${CPACK_DEBIAN_${component}_PACKAGE_NAME})
        set(CPACK_DEBIAN_${component}_DBGSYM_PACKAGE_NAME ${package}-dbgsym)
        set(CPACK_DEBIAN_${component}_DBGSYM_PACKAGE_SECTION debug)
        set(CPACK_DEBIAN_${component}_DBGSYM_PACKAGE_DEPENDS "${package} (= ${PROJECT_VERSION})")
        set(CPACK_DEBIAN_${component}_DBGSYM_DESCRIPTION "Debugging information for ${package},
which gdb finds by itself.")
        list(APPEND CPACK_COMPONENTS_ALL ${name}_dbgsym)
    endif()
endforeach()

# Each Debian package contains its licence and changelog; a plain installation leaves them out.
set(CPACK_KELPLIB_CHANGELOG ${CMAKE_CURRENT_SOURCE_DIR}/CHANGELOG.md)
configure_file(cmake/packages/debian-copyright debian/copyright COPYONLY)
include(CPack)
