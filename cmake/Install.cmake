# Installs kelplib with find_package(kelplib) for CMake and kelplib.pc for other build systems, and the kit with
# find_package(kelplib COMPONENTS kit) and kelpkit.pc. No installed file contains the installation path, so an installation can
# be moved.
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

# Programs and examples find the library of their own installation. Below /usr the system does that.
set(KELPLIB_RUN_PATH)
if(NOT WIN32 AND NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    file(RELATIVE_PATH library_folder ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set(KELPLIB_RUN_PATH $ORIGIN/${library_folder})
endif()
# For kelplib_install_tool in a project that contains kelplib.
set_target_properties(kelplib PROPERTIES KELPLIB_RUN_PATH "${KELPLIB_RUN_PATH}")

if(KELPLIB_BUILD_KIT)
    # The kit has an export set of its own, because it is installed apart from the library.
    set_target_properties(kelplib_kit PROPERTIES EXPORT_NAME kit)
    set(kit_files kit/cmake/CompareScreens.cmake kit/cmake/KelplibTool.cmake kit/cmake/KelplibWindowsParts.cmake)
    if(WIN32)
        install(TARGETS kelplib_windows_parts EXPORT kelplibKitTargets OBJECTS DESTINATION ${package_dir} COMPONENT kit)
        list(APPEND kit_files kit/cmake/windows_tool.manifest kit/cmake/windows_tool.rc.in)
    endif()
    install(FILES ${kit_files} DESTINATION ${package_dir} COMPONENT kit)
    install(TARGETS kelplib_kit EXPORT kelplibKitTargets ARCHIVE COMPONENT kit FILE_SET HEADERS COMPONENT kit)
    if(KELPLIB_BUILD_PROGRAMS)
        get_property(programs GLOBAL PROPERTY KELPLIB_PROGRAMS)
        set_target_properties(${programs} PROPERTIES INSTALL_RPATH "${KELPLIB_RUN_PATH}")
        install(TARGETS ${programs} EXPORT kelplibKitTargets RUNTIME COMPONENT kit)
        if(TARGET kelp_observer)
            install(TARGETS kelp_observer LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/kelplib COMPONENT kit)
        endif()
        foreach(program IN LISTS programs)
            kelplib_install_documents(${program} COMPONENT kit)
        endforeach()
    endif()
    install(EXPORT kelplibKitTargets NAMESPACE kelplib:: DESTINATION ${package_dir} COMPONENT kit)
    # Debian's packages have examples in a place of their own. In other installations the template is part of the documentation.
    install(DIRECTORY examples/template DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/kelplib-kit/examples
        COMPONENT kit EXCLUDE_FROM_ALL)
    configure_file(cmake/packages/kelpkit.pc.in kelpkit.pc @ONLY)
    install(FILES ${binary_dir}/kelpkit.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT kit)
endif()

include(cmake/packages/pages.cmake)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation FILES_MATCHING PATTERN *.svg
    PATTERN html EXCLUDE)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
