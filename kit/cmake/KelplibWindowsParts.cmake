# kelplib_add_windows_parts(TARGET [VERSION 1.2.3] [DESCRIPTION text]): gives an executable what a console tool needs on
# Windows, and does nothing on other systems:
# - version information: the version (by default that of the project) and the description (by default the target's name) in the
#   properties of the file. Its four numbers are the first ones of the version; if one exceeds 65535, all are 0.
# - a manifest: arguments, environment and the names of files are UTF-8, and paths may have more than 260 characters.
# - start code: arguments with wildcards arrive as typed. A console, but no pipe and no file, interprets escape sequences and uses
#   UTF-8 until the tool ends, also by Ctrl-C; not if it crashes or calls abort() or _exit().
# The target must not have a manifest or version information of its own.

# Writes a text as part of a string of a resource script, which passes file(GENERATE).
function(kelplib_resource_text result text)
    string(REGEX REPLACE "[\n\r\t]" " " text "${text}")
    string(REPLACE "\\" "\\\\" text "${text}")
    string(REPLACE "\"" "\"\"" text "${text}")
    string(REPLACE "$" "$<1:$>" text "${text}")
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

# The four numbers of a version.
function(kelplib_resource_numbers result version)
    string(REGEX MATCH "^[0-9]+([.][0-9]+)*" numbers "${version}")
    string(REPLACE "." ";" numbers "${numbers}")
    list(APPEND numbers 0 0 0 0)
    list(SUBLIST numbers 0 4 numbers)
    foreach(number IN LISTS numbers)
        if(number VERSION_GREATER 65535)
            set(numbers 0 0 0 0)
        endif()
    endforeach()
    # A leading zero would make a number octal.
    list(TRANSFORM numbers REPLACE "^0+([0-9])" "\\1")
    list(JOIN numbers "," numbers)
    set(${result} ${numbers} PARENT_SCOPE)
endfunction()

function(kelplib_add_windows_parts target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "VERSION;DESCRIPTION" "")
    if(DEFINED arg_UNPARSED_ARGUMENTS OR DEFINED arg_KEYWORDS_MISSING_VALUES)
        message(FATAL_ERROR "kelplib_add_windows_parts(${target}): expected [VERSION 1.2.3] [DESCRIPTION text], not: ${ARGN}")
    endif()
    if(NOT WIN32)
        return()
    endif()
    if(NOT CMAKE_RC_COMPILER MATCHES "windres")
        message(FATAL_ERROR "kelplib_add_windows_parts(${target}): needs windres, but CMAKE_RC_COMPILER is "
            "\"${CMAKE_RC_COMPILER}\" (windres is part of mingw-w64; Debian's package is binutils-mingw-w64-x86-64)")
    endif()
    if(NOT DEFINED arg_VERSION)
        set(arg_VERSION "${PROJECT_VERSION}")
    endif()
    if(NOT DEFINED arg_DESCRIPTION)
        set(arg_DESCRIPTION "${target}")
    endif()
    set(templates ${CMAKE_CURRENT_FUNCTION_LIST_DIR})
    kelplib_resource_numbers(numbers "${arg_VERSION}")
    kelplib_resource_text(version "${arg_VERSION}")
    kelplib_resource_text(description "${arg_DESCRIPTION}")
    kelplib_resource_text(name "${target}")
    kelplib_resource_text(manifest "${templates}/windows_tool.manifest")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${templates}/windows_tool.rc.in")
    file(READ ${templates}/windows_tool.rc.in resource)
    string(CONFIGURE "${resource}" resource @ONLY)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_windows/$<CONFIG>)
    file(GENERATE OUTPUT ${folder}/tool.rc CONTENT "${resource}")

    # Not a source of the target: windres passes definitions, folders and the path of its input to a shell without quoting them.
    add_custom_command(OUTPUT ${folder}/tool.obj
        COMMAND ${CMAKE_RC_COMPILER} -O coff tool.rc tool.obj
        DEPENDS ${folder}/tool.rc ${templates}/windows_tool.manifest
        WORKING_DIRECTORY ${folder} COMMENT "Building the resources of ${target}" VERBATIM)
    target_sources(${target} PRIVATE ${folder}/tool.obj $<TARGET_OBJECTS:kelplib::windows_parts>)
endfunction()
