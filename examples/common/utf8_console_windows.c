#include <windows.h>

#include <stdlib.h>

#include "utf8_console.h"

static UINT encoding_before;

static void restore_encoding(void) {
    SetConsoleOutputCP(encoding_before);
}

/* The C runtime of wine 8 writes text to a console byte by byte, and each byte is shown by itself all the same. */
void common_use_utf8_console(void) {
    encoding_before = GetConsoleOutputCP();
    if (encoding_before != 0 && SetConsoleOutputCP(CP_UTF8) != 0) {
        atexit(restore_encoding);
    }
}
