# find_package(kelplib) for a project that links the installed library.
include(CMakePackageConfigHelpers)
set(KELPLIB_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kelplib)
write_basic_package_version_file(kelplibConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(TARGETS kelplib EXPORT kelplibTargets FILE_SET HEADERS)
install(EXPORT kelplibTargets NAMESPACE kelplib:: DESTINATION ${KELPLIB_PACKAGE_DIR} FILE kelplibConfig.cmake)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kelplibConfigVersion.cmake DESTINATION ${KELPLIB_PACKAGE_DIR})
