#include <windows.h>

#include <stdlib.h>

#include "utf8_console.h"

static UINT encoding_before;

static void restore_encoding(void) {
    SetConsoleOutputCP(encoding_before);
}

/* This has no effect under wine 8, whose C runtime writes text to a console byte by byte. */
void use_utf8_console(void) {
    encoding_before = GetConsoleOutputCP();
    if (encoding_before != 0 && SetConsoleOutputCP(CP_UTF8) != 0) {
        atexit(restore_encoding);
    }
}
