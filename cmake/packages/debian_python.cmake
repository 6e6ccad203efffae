# The Debian package of the Python package. Other installations leave it out: Python would not search their folders.
list(APPEND CPACK_COMPONENTS_ALL python)
install(DIRECTORY python/kelplib DESTINATION lib/python3/dist-packages COMPONENT python EXCLUDE_FROM_ALL
    PATTERN __pycache__ EXCLUDE)
set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-kelplib)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3 (>= 3.11), ${runtime_package} (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS libkelplib-doc)
set(CPACK_DEBIAN_PYTHON_DESCRIPTION "Progress of a loop or of other long work in a Python program, as a
bar or as a face, drawn by the shared library.")
# Python writes there what it has compiled if root imports the package.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/debian/python/prerm [[
#!/bin/sh
set -e
rm -rf "$DPKG_ROOT/usr/lib/python3/dist-packages/kelplib/__pycache__"
]])
file(CHMOD ${CMAKE_CURRENT_BINARY_DIR}/debian/python/prerm
    PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/debian/python/prerm)
