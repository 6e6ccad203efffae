# Every file of the library. A file that is not listed here is not built.
set(KELPLIB_PUBLIC_HEADERS
    include/kelplib/CommandLineTool.h
    include/kelplib/Export.h
    include/kelplib/FilePath.h
    include/kelplib/Kelp.h
    include/kelplib/KelpProgress.h)

include(CheckCXXSourceCompiles)
# If the streams can be declared without <iostream>, they are initialised on first use.
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
    src/command_line/argv_tokens.cpp
    src/command_line/flag_check.cpp
    src/command_line/flag_key.cpp
    src/command_line/flag_scanners.cpp
    src/command_line/option.cpp
    src/command_line/option_reader.cpp
    src/console/bar_body.cpp
    src/console/bounded_text.cpp
    src/console/time_and_cursor.cpp
    src/console/colored_string.cpp
    src/console/face.cpp
    src/console/face_frame.cpp
    src/console/global_progress.cpp
    src/console/label.cpp
    src/console/progress_bar.cpp
    src/console/progress_line.cpp
    src/console/time_left.cpp
    src/console/verbosity.cpp
    src/console/wait_or_press_key.cpp
    src/console/write_at_once.cpp
    src/convert/collection_values.cpp
    src/convert/localized_text.cpp
    src/convert/number_reading.cpp
    src/convert/number_text.cpp
    src/convert/path_value.cpp
    src/convert/scalar_values.cpp
    src/convert/shortest_digits.cpp
    src/convert/value_text.cpp
    src/path/file_path.cpp
    src/tool/checks.cpp
    src/tool/construction.cpp
    src/tool/help.cpp
    src/tool/install_location.cpp
    src/tool/output.cpp
    src/tool/queries.cpp
    src/util/ascii_fold.cpp
    src/util/leading_int.cpp
    src/util/string_utilities.cpp)

if(WIN32)
    set(KELPLIB_PLATFORM_SOURCES src/platform/platform_windows.cpp ${KELPLIB_STREAMS_SOURCE})
else()
    set(KELPLIB_PLATFORM_SOURCES src/platform/platform_posix.cpp ${KELPLIB_STREAMS_SOURCE})
endif()
