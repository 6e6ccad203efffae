# Every file of the library, by hand: a file that is not listed here is not built.
set(KELPLIB_PUBLIC_HEADERS
    include/kelplib/CommandLineTool.h
    include/kelplib/Export.h
    include/kelplib/Kelp.h)

set(KELPLIB_SOURCES
    src/console/colored_string.cpp
    src/convert/localized_text.cpp
    src/convert/path_value.cpp
    src/convert/scalar_values.cpp
    src/frame/command_line_tool.cpp
    src/frame/command_line_tool_checks.cpp
    src/frame/command_line_tool_help.cpp
    src/frame/flag_key.cpp
    src/frame/option.cpp
    src/frame/option_reader.cpp
    src/util/ascii_fold.cpp
    src/util/string_utilities.cpp)

if(WIN32)
    set(KELPLIB_PLATFORM_SOURCES src/platform/platform_windows.cpp)
else()
    set(KELPLIB_PLATFORM_SOURCES src/platform/platform_posix.cpp)
endif()
