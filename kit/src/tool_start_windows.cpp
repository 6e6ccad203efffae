// Part of every executable to which kelplib_add_windows_parts() adds it, with console_windows.cpp. Uses nothing of the C++ library,
// so that tools in C can have it.

#include "console.h"

extern "C" {
/// mingw-w64's start code expands wildcards in the arguments unless the program sets this to 0.
int _dowildcard = 0;

/// Runs before main().
[[gnu::constructor]] static void useUtf8ConsoleAtStart() {
    Kelpkit::useUtf8Console();
}
}
