# Builds console tools with the kit. Available after find_package(kelplib COMPONENTS kit), and after add_subdirectory or
# FetchContent_MakeAvailable with KELPLIB_BUILD_KIT=ON.
#
#     kelplib_add_tool(NAME SOURCES... [VERSION VERSION] [OUTPUT_NAME COMMAND] [TAKES HINT...] [SCREEN FILE] [MAN_SECTIONS FILE]
#                      [COMPONENT COMPONENT] [ALLOW_WARNINGS])
#
# Adds the executable NAME, links it with kelplib::kit, and calls the functions below. VERSION, numbers with dots, is the macro
# TOOL_VERSION in the sources, a text, and the version of the file on Windows.
#
#     kelplib_add_windows_parts(TARGET ...)        see KelplibWindowsParts.cmake
#     kelplib_copy_libraries(TARGET)
#     kelplib_add_documents(TARGET [TAKES HINT...] [SCREEN FILE] [MAN_SECTIONS FILE])
#     kelplib_add_tool_tests(TARGET [TAKES HINT...] [SCREEN FILE] [ALLOW_WARNINGS])
#     kelplib_install_tool(TARGET [COMPONENT COMPONENT] [EXCLUDE_FROM_ALL])
#     kelplib_install_documents(TARGET [COMPONENT COMPONENT] [EXCLUDE_FROM_ALL])
#
# Call them for an executable of the current folder, in this order. Its name as a command is its OUTPUT_NAME, which is set before, or
# TARGET.
#
# TAKES says what options take, where the help screen does not: n=LINES o=FILE:file d=DIR:folder "m=fast|exact" l
# (see kelp-doc --help). A hint cannot contain a comma. MAN_SECTIONS is a file with further sections of the man page, in mdoc.
# SCREEN is the tool's help screen in the visible form of kelp-doc, kept with the sources. A test compares it with what the tool
# prints, and the target TARGET-screen writes it. Without a tool that runs here it is the source of the documents.
#
# The cache variable KELPLIB_KELP_DOC is the kelp-doc that writes the documents. By default it is that of the package, or if
# that does not run on this machine, the one in PATH.
include_guard(GLOBAL)

function(kelplib_add_tool name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "ALLOW_WARNINGS" "VERSION;OUTPUT_NAME;SCREEN;MAN_SECTIONS;COMPONENT" "TAKES")
    if("VERSION" IN_LIST ARGN AND NOT "${arg_VERSION}" MATCHES "^[0-9]+([.][0-9]+)*$")
        message(FATAL_ERROR "kelplib_add_tool(${name}): VERSION \"${arg_VERSION}\": expected numbers with dots, as in 1.2.0")
    endif()
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE kelplib::kit)
    if(DEFINED arg_OUTPUT_NAME)
        set_target_properties(${name} PROPERTIES OUTPUT_NAME ${arg_OUTPUT_NAME})
    endif()
    if(DEFINED arg_VERSION)
        target_compile_definitions(${name} PRIVATE "TOOL_VERSION=\"${arg_VERSION}\"")
    endif()
    _kelplib_pass_on(VERSION version)
    _kelplib_pass_on(SCREEN screen)
    _kelplib_pass_on(MAN_SECTIONS sections)
    _kelplib_pass_on(COMPONENT component)
    kelplib_add_windows_parts(${name} ${version})
    kelplib_copy_libraries(${name})
    kelplib_add_documents(${name} TAKES ${arg_TAKES} ${screen} ${sections})
    set(warnings)
    if(arg_ALLOW_WARNINGS)
        set(warnings ALLOW_WARNINGS)
    endif()
    kelplib_add_tool_tests(${name} TAKES ${arg_TAKES} ${screen} ${warnings})
    kelplib_install_tool(${name} ${component})
endfunction()

# kelplib_copy_libraries(TARGET): on Windows, copies kelplib.dll to the folder of the executable, so that it can be run there.
function(kelplib_copy_libraries target)
    if(WIN32)
        add_custom_command(TARGET ${target} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:kelplib::kelplib> $<TARGET_FILE_DIR:${target}> VERBATIM)
    endif()
endfunction()

# kelplib_add_documents(TARGET ...): writes the tool's completions, man page, Markdown and JSON, and its help screen NAME.screen,
# to the folder "documents" of the build, in the layout of an installation. They are part of the target ALL, unless TARGET is
# not, and are written again when the tool has changed. Where no kelp-doc runs, and in a cross build with neither emulator nor
# SCREEN, prints a line and adds no documents.
function(kelplib_add_documents target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "SCREEN;MAN_SECTIONS" "TAKES")
    _kelplib_refuse_others(kelplib_add_documents)
    _kelplib_name_of(${target} name)
    _kelplib_find_kelp_doc(${target} kelp_doc kelp_doc_file)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/documents)
    get_target_property(program_folder ${target} RUNTIME_OUTPUT_DIRECTORY)
    if(name STREQUAL "documents" AND NOT program_folder AND NOT WIN32)
        message(FATAL_ERROR "${target}: the program and the folder of its documents would both be ${folder}; set another "
            "OUTPUT_NAME or RUNTIME_OUTPUT_DIRECTORY")
    endif()
    set(screen ${folder}/${name}.screen)
    set(write_screen ${kelp_doc} -f=screen -n=${name} -o=${screen})
    get_target_property(emulator ${target} CROSSCOMPILING_EMULATOR)
    set(saved)
    if(DEFINED arg_SCREEN)
        get_filename_component(saved ${arg_SCREEN} ABSOLUTE)
    endif()
    set(needed ${target})
    set(screen_target ${saved})
    if(NOT kelp_doc)
        message(STATUS "No documents for ${name}: kelp-doc not found; set KELPLIB_KELP_DOC")
        return()
    elseif(NOT CMAKE_CROSSCOMPILING)
        set(commands COMMAND ${write_screen} $<TARGET_FILE:${target}>)
    elseif(emulator)
        # kelp-doc cannot start programs that need an emulator.
        set(commands COMMAND ${emulator} $<TARGET_FILE:${target}> --help . > ${screen}.printed
                     COMMAND ${write_screen} -s ${screen}.printed)
    elseif(saved AND EXISTS ${saved})
        set(needed ${saved})
        set(screen_target)
        set(commands COMMAND ${write_screen} -s ${saved})
    else()
        message(STATUS "No documents for ${name}: it cannot run here; set CMAKE_CROSSCOMPILING_EMULATOR or pass SCREEN")
        return()
    endif()

    list(JOIN arg_TAKES "," hints)
    set(options -n=${name})
    if(NOT hints STREQUAL "")
        list(APPEND options -t=${hints})
    endif()
    if(DEFINED arg_MAN_SECTIONS)
        get_filename_component(sections ${arg_MAN_SECTIONS} ABSOLUTE)
        list(APPEND options -i=${sections})
        list(APPEND needed ${sections})
    endif()
    _kelplib_list_documents(${name} documents)
    list(TRANSFORM documents PREPEND ${folder}/)
    # What a kelp-doc left that was killed would stop every later one.
    list(TRANSFORM documents APPEND .unfinished OUTPUT_VARIABLE unfinished)
    list(TRANSFORM documents APPEND .replaced OUTPUT_VARIABLE replaced)
    add_custom_command(OUTPUT ${screen} ${documents}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
        COMMAND ${CMAKE_COMMAND} -E rm -f ${screen}.unfinished ${screen}.replaced ${unfinished} ${replaced}
        ${commands}
        COMMAND ${kelp_doc} -a ${options} -o=${folder} -s ${screen}
        DEPENDS ${needed} ${kelp_doc_file} COMMENT "Writing documents about ${name}" VERBATIM)
    set(all ALL)
    get_target_property(excluded ${target} EXCLUDE_FROM_ALL)
    if(excluded)
        set(all)
    endif()
    # Only the screen, which the command writes with the rest: a file called like a target would make CMake (seen with 3.25) look
    # at the target's sources before it knows the configuration.
    add_custom_target(${target}-documents ${all} DEPENDS ${screen})
    set_target_properties(${target} PROPERTIES KELPLIB_DOCUMENTS ${folder})
    if(screen_target)
        add_custom_target(${target}-screen COMMAND ${CMAKE_COMMAND} -E copy ${screen} ${saved}
            COMMENT "Writing ${arg_SCREEN}" VERBATIM)
        add_dependencies(${target}-screen ${target}-documents)
        set_target_properties(${target} PROPERTIES KELPLIB_SCREEN ${screen})
    endif()
endfunction()

# kelplib_add_tool_tests(TARGET ...): adds the test TARGET-definition, which runs kelp-check and fails for errors and, unless
# ALLOW_WARNINGS is given, for warnings; with SCREEN also the test TARGET-screen. Does nothing if BUILD_TESTING is off. As for all tests, the project calls enable_testing() in its top folder.
function(kelplib_add_tool_tests target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "ALLOW_WARNINGS" "SCREEN" "TAKES")
    _kelplib_refuse_others(kelplib_add_tool_tests)
    if(DEFINED BUILD_TESTING AND NOT BUILD_TESTING)
        return()
    endif()
    _kelplib_name_of(${target} name)
    get_target_property(emulator ${target} CROSSCOMPILING_EMULATOR)
    # kelp-check starts the tool itself. Under wine it can.
    if(TARGET kelplib::kelp-check AND (NOT CMAKE_CROSSCOMPILING OR (WIN32 AND emulator)))
        list(JOIN arg_TAKES "," hints)
        set(options -n=${name})
        if(NOT arg_ALLOW_WARNINGS)
            # ctest does not show what a test prints that passes.
            list(APPEND options -s)
        endif()
        if(NOT hints STREQUAL "")
            list(APPEND options -t=${hints})
        endif()
        set(runner)
        if(CMAKE_CROSSCOMPILING)
            set(runner ${emulator})
        endif()
        add_test(NAME ${target}-definition
            COMMAND ${runner} $<TARGET_FILE:kelplib::kelp-check> ${options} $<TARGET_FILE:${target}>)
        # In another project kelplib's programs are built only if something needs them.
        get_target_property(imported kelplib::kelp-check IMPORTED)
        if(NOT imported)
            add_custom_target(${target}-tests ALL)
            add_dependencies(${target}-tests kelplib::kelp-check)
        endif()
    endif()
    get_target_property(screen ${target} KELPLIB_SCREEN)
    if(DEFINED arg_SCREEN AND screen)
        get_filename_component(saved ${arg_SCREEN} ABSOLUTE)
        add_test(NAME ${target}-screen COMMAND ${CMAKE_COMMAND} -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/CompareScreens.cmake --
            ${saved} ${screen} ${CMAKE_BINARY_DIR} ${target}-screen)
    endif()
endfunction()

# kelplib_install_tool(TARGET ...): installs the executable and its documents. Unless the project sets run paths itself, the tool
# finds kelplib where it was linked with it, or if kelplib is built with the project, where KELPLIB_INSTALL=ON installs it. On
# Windows, the kelplib.dll of a package is installed with the tool.
function(kelplib_install_tool target)
    _kelplib_read_install_options(options ${target} ${ARGN})
    include(GNUInstallDirs)
    if(NOT DEFINED CMAKE_INSTALL_RPATH AND NOT DEFINED CMAKE_INSTALL_RPATH_USE_LINK_PATH)
        set_target_properties(${target} PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
    endif()
    install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} ${options})
    get_target_property(imported kelplib::kelplib IMPORTED)
    get_property(own_run_path TARGET ${target} PROPERTY INSTALL_RPATH)
    if(NOT imported AND NOT DEFINED CMAKE_INSTALL_RPATH AND "${own_run_path}" STREQUAL "")
        get_property(is_installed TARGET kelplib::kelplib PROPERTY KELPLIB_RUN_PATH SET)
        if(is_installed)
            get_target_property(run_path kelplib::kelplib KELPLIB_RUN_PATH)
            set_target_properties(${target} PROPERTIES INSTALL_RPATH "${run_path}")
        else()
            message(STATUS "Installs ${target} without kelplib, which needs KELPLIB_INSTALL=ON")
        endif()
    endif()
    if(WIN32 AND imported)
        install(FILES $<TARGET_FILE:kelplib::kelplib> DESTINATION ${CMAKE_INSTALL_BINDIR} ${options})
    endif()
    kelplib_install_documents(${target} ${ARGN})
endfunction()

# kelplib_install_documents(TARGET ...): installs the completions and the man page in the folders of the cache variables
# KELPLIB_INSTALL_BASH_DIR, _FISH_DIR, _MAN_DIR and _ZSH_DIR, which are relative to the prefix, or in the usual ones.
function(kelplib_install_documents target)
    _kelplib_read_install_options(options ${target} ${ARGN})
    get_target_property(folder ${target} KELPLIB_DOCUMENTS)
    if(NOT folder)
        return()
    endif()
    include(GNUInstallDirs)
    # Debian's zsh looks for the files of packages in another folder.
    set(zsh site-functions)
    if(NOT WIN32 AND CMAKE_INSTALL_PREFIX STREQUAL "/usr" AND EXISTS /etc/debian_version)
        set(zsh vendor-completions)
    endif()
    _kelplib_use_folder(BASH "bash's completions" ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    _kelplib_use_folder(FISH "fish's completions" ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
    _kelplib_use_folder(MAN "the man pages of tools" ${CMAKE_INSTALL_MANDIR}/man1)
    _kelplib_use_folder(ZSH "zsh's completions" ${CMAKE_INSTALL_DATADIR}/zsh/${zsh})
    _kelplib_name_of(${target} name)
    _kelplib_list_documents(${name} documents)
    foreach(document IN LISTS documents)
        string(REGEX MATCH "^share/(bash|fish|man|zsh)" kind ${document})
        if(kind)
            string(TOUPPER ${CMAKE_MATCH_1} kind)
            install(FILES ${folder}/${document} DESTINATION ${KELPLIB_INSTALL_${kind}_DIR} ${options})
        endif()
    endforeach()
endfunction()

# _kelplib_use_folder(KIND FILES FOLDER): adds the cache variable KELPLIB_INSTALL_<KIND>_DIR; while it is empty, FOLDER is used.
macro(_kelplib_use_folder kind files folder)
    set(KELPLIB_INSTALL_${kind}_DIR "" CACHE STRING "Folder of ${files}; if empty, that of the prefix")
    if("${KELPLIB_INSTALL_${kind}_DIR}" STREQUAL "")
        set(KELPLIB_INSTALL_${kind}_DIR ${folder})
    endif()
endmacro()

# _kelplib_list_documents(NAME VARIABLE): lists the files that kelp-doc writes with -a.
function(_kelplib_list_documents name variable)
    set(${variable}
        share/bash-completion/completions/${name}
        share/doc/${name}/${name}.json
        share/doc/${name}/${name}.md
        share/fish/vendor_completions.d/${name}.fish
        share/man/man1/${name}.1
        share/zsh/site-functions/_${name}
        PARENT_SCOPE)
endfunction()

# _kelplib_name_of(TARGET VARIABLE): sets the variable to the tool's name as a command, which may not change any more.
function(_kelplib_name_of target variable)
    get_property(name TARGET ${target} PROPERTY OUTPUT_NAME)
    if("${name}" STREQUAL "")
        set(name ${target})
    endif()
    # As kelp-doc does; what is not ASCII it checks alone.
    string(GENEX_STRIP "${name}" plain)
    if(plain MATCHES "^[-.]|[\t\n\r -*,/:-@[-^`{-~]")
        message(FATAL_ERROR "${target}: \"${name}\" is not the name of a command; set another OUTPUT_NAME")
    endif()
    set(${variable} ${name} PARENT_SCOPE)
    get_property(is_used TARGET ${target} PROPERTY KELPLIB_COMMAND SET)
    if(NOT is_used)
        set_target_properties(${target} PROPERTIES KELPLIB_COMMAND ${name})
        # The arguments of a deferred call are evaluated in the folder, which does not know the variables of this function.
        cmake_language(EVAL CODE "cmake_language(DEFER CALL _kelplib_check_name [[${target}]])")
    endif()
endfunction()

# _kelplib_check_name(TARGET): fails if the tool's name as a command is not the one that its documents and tests have.
function(_kelplib_check_name target)
    get_target_property(used_name ${target} KELPLIB_COMMAND)
    _kelplib_name_of(${target} name)
    if(NOT name STREQUAL used_name)
        message(FATAL_ERROR "${target}: OUTPUT_NAME ${name} is set too late, the documents have the name ${used_name}; pass "
            "OUTPUT_NAME to kelplib_add_tool, or set it before the first of its pieces")
    endif()
endfunction()

# _kelplib_pass_on(KEYWORD VARIABLE): sets the variable to the keyword and its value, or to nothing if the function got none.
# CMake 3.31 warns of a keyword without a value.
macro(_kelplib_pass_on keyword variable)
    set(${variable})
    if(DEFINED arg_${keyword})
        set(${variable} ${keyword} ${arg_${keyword}})
    endif()
endmacro()

# _kelplib_refuse_others(FUNCTION): fails if the function got an argument that it does not know.
macro(_kelplib_refuse_others function)
    if(DEFINED arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${function}(${target}): unknown argument ${arg_UNPARSED_ARGUMENTS}")
    endif()
endmacro()

# _kelplib_read_install_options(VARIABLE TARGET [COMPONENT COMPONENT] [EXCLUDE_FROM_ALL]): makes options of install().
function(_kelplib_read_install_options variable target)
    cmake_parse_arguments(PARSE_ARGV 2 arg "EXCLUDE_FROM_ALL" "COMPONENT" "")
    _kelplib_refuse_others(kelplib_install_tool)
    set(options)
    if(DEFINED arg_COMPONENT)
        list(APPEND options COMPONENT ${arg_COMPONENT})
    endif()
    if(arg_EXCLUDE_FROM_ALL)
        list(APPEND options EXCLUDE_FROM_ALL)
    endif()
    set(${variable} ${options} PARENT_SCOPE)
endfunction()

# _kelplib_find_kelp_doc(TARGET COMMAND FILE): sets COMMAND to the command line of a kelp-doc that runs on this machine, or to
# nothing, and FILE to what it depends on.
function(_kelplib_find_kelp_doc target command file)
    get_target_property(emulator ${target} CROSSCOMPILING_EMULATOR)
    if(NOT KELPLIB_KELP_DOC AND TARGET kelplib::kelp-doc AND (NOT CMAKE_CROSSCOMPILING OR emulator))
        set(runner)
        if(CMAKE_CROSSCOMPILING)
            set(runner ${emulator})
        endif()
        set(${command} ${runner} $<TARGET_FILE:kelplib::kelp-doc> PARENT_SCOPE)
        set(${file} kelplib::kelp-doc PARENT_SCOPE)
        return()
    endif()
    # Only in PATH: the other places may have programs for the target system.
    find_program(KELPLIB_KELP_DOC kelp-doc DOC "The kelp-doc that writes documents" NO_PACKAGE_ROOT_PATH NO_CMAKE_PATH
        NO_CMAKE_ENVIRONMENT_PATH NO_CMAKE_SYSTEM_PATH NO_CMAKE_FIND_ROOT_PATH)
    set(${command} PARENT_SCOPE)
    set(${file} PARENT_SCOPE)
    if(KELPLIB_KELP_DOC)
        set(${command} ${KELPLIB_KELP_DOC} PARENT_SCOPE)
        set(${file} ${KELPLIB_KELP_DOC} PARENT_SCOPE)
    endif()
endfunction()
