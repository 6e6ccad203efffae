# The HTML documentation: the public headers and all pages. The target "docs" builds it; the test "docs_reference" tries it
# wherever Doxygen is there.
option(KELPLIB_BUILD_DOCS "Build the HTML documentation (target docs)" OFF)

# The look of the pages, from the package doxygen-awesome-css. Without it they look as Doxygen makes them.
find_file(KELPLIB_DOCS_THEME doxygen-awesome.css PATH_SUFFIXES share/doxygen-awesome-css)
set(KELPLIB_DOCS_STYLE)
if(KELPLIB_DOCS_THEME)
    set(KELPLIB_DOCS_STYLE ${KELPLIB_DOCS_THEME})
endif()
set(KELPLIB_DOCS_DIR ${CMAKE_CURRENT_BINARY_DIR}/html)
configure_file(cmake/Doxyfile.in Doxyfile @ONLY)

# Doxygen finds no page that another one links to below such a folder.
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
    add_custom_target(docs ALL
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${KELPLIB_DOCS_DIR}
        COMMAND ${DOXYGEN_EXECUTABLE} ${CMAKE_CURRENT_BINARY_DIR}/Doxyfile
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
        COMMENT "Building the documentation"
        VERBATIM)
    install(DIRECTORY ${KELPLIB_DOCS_DIR} DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
endif()
