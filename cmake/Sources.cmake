# Every file of the library, by hand: a file that is not listed here is not built.
set(KELPLIB_PUBLIC_HEADERS
    include/kelplib/CommandLineTool.h
    include/kelplib/Export.h
    include/kelplib/FilePath.h
    include/kelplib/Kelp.h
    include/kelplib/KelpProgress.h)

include(CheckCXXSourceCompiles)
# Where the streams can be declared without <iostream>, they are made ready at their first use.
check_cxx_source_compiles("
    #include <ext/stdio_sync_filebuf.h>
    #include <ostream>
    namespace std { extern ostream cout; }
    int main() { static const std::ios_base::Init ready; std::cout.flush(); }"
    KELPLIB_STREAMS_ON_DEMAND)
if(KELPLIB_STREAMS_ON_DEMAND)
    set(KELPLIB_STREAMS_SOURCE src/platform/standard_streams_on_demand.cpp)
else()
    set(KELPLIB_STREAMS_SOURCE src/platform/standard_streams_plain.cpp)
endif()

set(KELPLIB_SOURCES
    src/console/bar_body.cpp
    src/console/bounded_text.cpp
    src/console/colored_string.cpp
    src/console/face_frame.cpp
    src/console/global_progress.cpp
    src/console/label.cpp
    src/console/progress_bar.cpp
    src/console/progress_line.cpp
    src/console/smiley.cpp
    src/console/standard_output.cpp
    src/console/time_left.cpp
    src/convert/collection_values.cpp
    src/convert/localized_text.cpp
    src/convert/number_reading.cpp
    src/convert/number_text.cpp
    src/convert/path_value.cpp
    src/convert/scalar_values.cpp
    src/convert/value_text.cpp
    src/frame/command_line_tool.cpp
    src/frame/command_line_tool_checks.cpp
    src/frame/command_line_tool_help.cpp
    src/frame/command_line_tool_output.cpp
    src/frame/flag_key.cpp
    src/frame/install_location.cpp
    src/frame/option.cpp
    src/frame/option_reader.cpp
    src/frame/token_mark.cpp
    src/path/file_path.cpp
    src/util/ascii_fold.cpp
    src/util/flag_scanners.cpp
    src/util/leading_int.cpp
    src/util/string_utilities.cpp
    src/util/tokens.cpp
    src/util/verbosity.cpp
    src/util/wait_or_press_key.cpp)

if(WIN32)
    set(KELPLIB_PLATFORM_SOURCES src/platform/platform_windows.cpp ${KELPLIB_STREAMS_SOURCE})
else()
    set(KELPLIB_PLATFORM_SOURCES src/platform/platform_posix.cpp ${KELPLIB_STREAMS_SOURCE})
endif()
