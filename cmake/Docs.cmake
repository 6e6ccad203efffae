# The HTML documentation: the public headers and all pages. The target "docs" builds it, and so does the test "docs_reference" if
# Doxygen is installed.
option(KELPLIB_BUILD_DOCS "Build the HTML documentation (target docs)" OFF)

# The style of the pages, from the package doxygen-awesome-css. Without it they have Doxygen's default look. Their search is that
# of the package libjs-lunr; without it they have none. docs/html/build.py uses both.
find_file(KELPLIB_DOCS_THEME doxygen-awesome.css PATH_SUFFIXES share/doxygen-awesome-css)
set(KELPLIB_DOCS_STYLE)
if(KELPLIB_DOCS_THEME)
    set(KELPLIB_DOCS_STYLE ${KELPLIB_DOCS_THEME})
endif()
set(KELPLIB_DOCS_LUNR /usr/share/javascript/lunr/lunr.min.js)
find_program(KELPLIB_DOCS_PYTHON NAMES python3 HINTS /usr/bin)
set(KELPLIB_DOCS_DIR ${CMAKE_CURRENT_BINARY_DIR}/html)
configure_file(cmake/Doxyfile.in Doxyfile @ONLY)

# In a folder with a blank in its path, Doxygen (seen with 1.9.4) does not find the pages that links point to.
if(CMAKE_CURRENT_SOURCE_DIR MATCHES " ")
    set(KELPLIB_DOXYGEN_FOLDER OFF)
else()
    set(KELPLIB_DOXYGEN_FOLDER ON)
endif()

if(KELPLIB_BUILD_DOCS)
    if(NOT KELPLIB_DOXYGEN_FOLDER)
        message(FATAL_ERROR "Doxygen cannot build the documentation in a folder with a blank in its path.")
    endif()
    find_package(Doxygen REQUIRED)
    if(NOT KELPLIB_DOCS_PYTHON)
        message(FATAL_ERROR "The documentation needs python3.")
    endif()
    add_custom_target(docs ALL
        COMMAND ${KELPLIB_DOCS_PYTHON} -B docs/html/build.py ${DOXYGEN_EXECUTABLE} ${CMAKE_CURRENT_BINARY_DIR}/Doxyfile
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
        COMMENT "Building the documentation"
        VERBATIM)
    install(DIRECTORY ${KELPLIB_DOCS_DIR} DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
endif()
