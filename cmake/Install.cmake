# Installs kelplib with find_package(kelplib) for CMake and kelplib.pc for other build systems. No installed file contains
# the installation path, so an installation can be moved.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kelplib)
set(binary_dir ${CMAKE_CURRENT_BINARY_DIR})

install(TARGETS kelplib EXPORT kelplibTargets
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    FILE_SET HEADERS COMPONENT development)

write_basic_package_version_file(${binary_dir}/kelplibConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(EXPORT kelplibTargets NAMESPACE kelplib:: DESTINATION ${package_dir} COMPONENT development)
install(FILES cmake/packages/kelplibConfig.cmake ${binary_dir}/kelplibConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT development)

file(RELATIVE_PATH prefix_seen_from_pc ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/packages/kelplib.pc.in kelplib.pc @ONLY)
install(FILES ${binary_dir}/kelplib.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

install(FILES README.md CHANGELOG.md CONTRIBUTING.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation
    FILES_MATCHING PATTERN *.md PATTERN *.svg)
# The pages link to the headers and the examples.
install(DIRECTORY include examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
