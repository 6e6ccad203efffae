#ifndef KELPLIB_TESTS_KIT_WINDOWS_CONSOLE_STATE_H
#define KELPLIB_TESTS_KIT_WINDOWS_CONSOLE_STATE_H

#include <windows.h>

#include <cstdio>

/// Prints the encodings of output and input and whether the console interprets escape sequences, on standard error.
inline void printState(const char* when) {
    const HANDLE console =
        CreateFileA("CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD mode = 0;
    GetConsoleMode(console, &mode);
    CloseHandle(console);
    static_cast<void>(std::fprintf(stderr, "%s: %u %u %s\n", when, GetConsoleOutputCP(), GetConsoleCP(),
                                   (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0 ? "interpreted" : "raw"));
    static_cast<void>(std::fflush(stderr));
}

#endif
