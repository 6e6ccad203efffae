#include <windows.h>

#include <atomic>
#include <cstdlib>

#include "console.h"

namespace {

/// 0 while nothing has to be restored.
std::atomic<UINT> encodingBefore{0};

}  // namespace

extern "C" {
static void restoreAtExit() {
    Kelpkit::restoreConsole();
}

/// Runs in a thread of its own when Ctrl-C is pressed or the console is closed.
static BOOL WINAPI restoreOnCtrl(DWORD /*event*/) {
    Kelpkit::restoreConsole();
    return FALSE;  // the next handler, by default the one that ends the process, runs too
}
}

// This has no effect under wine 8, whose C runtime writes text to a console byte by byte.
void Kelpkit::useUtf8Console() {
    const UINT encoding = GetConsoleOutputCP();
    if (encoding == 0 || encoding == CP_UTF8 || SetConsoleOutputCP(CP_UTF8) == 0) {
        return;
    }
    encodingBefore = encoding;
    std::atexit(restoreAtExit);
    SetConsoleCtrlHandler(restoreOnCtrl, TRUE);
}

void Kelpkit::restoreConsole() {
    if (const UINT encoding = encodingBefore.exchange(0); encoding != 0) {
        SetConsoleOutputCP(encoding);
    }
}

bool Kelpkit::isStandardOutputOpen() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    return output != nullptr && output != INVALID_HANDLE_VALUE;
}
