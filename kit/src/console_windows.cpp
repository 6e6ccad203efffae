#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>

#include "console.h"

namespace {

using GetEncoding = UINT(WINAPI*)();
using SetEncoding = BOOL(WINAPI*)(UINT);

// 0 or null while nothing has to be restored.
std::atomic<UINT> outputEncodingBefore{0};
std::atomic<UINT> inputEncodingBefore{0};
std::atomic<HANDLE> changedConsole{nullptr};

bool isConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

/// \returns standard output or standard error if it is a console, otherwise null
HANDLE outputConsole() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    return isConsole(output) ? output : isConsole(errors) ? errors : nullptr;
}

/// \returns the encoding before, or 0 if it stays
UINT useUtf8(GetEncoding get, SetEncoding set) {
    const UINT before = get();
    return before != CP_UTF8 && set(CP_UTF8) != 0 ? before : 0;
}

/// Leaves the encoding alone if another program has set it meanwhile.
void restoreEncoding(std::atomic<UINT>& before, GetEncoding get, SetEncoding set) {
    if (const UINT encoding = before.exchange(0); encoding != 0 && get() == CP_UTF8) {
        set(encoding);
    }
}

/// Has the console interpret escape sequences.
/// \returns a handle of the console that stays open when the tool closes its own, or null if nothing has changed
HANDLE useEscapeSequences(HANDLE console) {
    const HANDLE process = GetCurrentProcess();
    DWORD mode = 0;
    HANDLE copy = nullptr;
    if (GetConsoleMode(console, &mode) == 0 || (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0 ||
        DuplicateHandle(process, console, process, &copy, 0, FALSE, DUPLICATE_SAME_ACCESS) == 0) {
        return nullptr;
    }
    if (SetConsoleMode(copy, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) == 0) {
        CloseHandle(copy);
        return nullptr;
    }
    return copy;
}

void restoreMode() {
    const HANDLE console = changedConsole.exchange(nullptr);
    DWORD mode = 0;
    if (console != nullptr && GetConsoleMode(console, &mode) != 0) {
        SetConsoleMode(console, mode & ~static_cast<DWORD>(ENABLE_VIRTUAL_TERMINAL_PROCESSING));
    }
}

}  // namespace

extern "C" {
static void restoreAtExit() {
    std::fflush(stdout);
    Kelpkit::restoreConsole();
}

/// Runs in a thread of its own when Ctrl-C is pressed or the console is closed, unless a handler installed later, such as that
/// of std::signal(), has dealt with it.
static BOOL WINAPI restoreOnCtrl(DWORD /*event*/) {
    Kelpkit::restoreConsole();
    return FALSE;  // the next handler, by default the one that ends the process, runs too
}
}

// UTF-8 has no effect under wine 8, whose C runtime writes text to a console byte by byte.
void Kelpkit::useUtf8Console() {
    static std::atomic<bool> isUsed{false};
    if (isUsed.exchange(true)) {
        return;
    }
    if (const HANDLE console = outputConsole(); console != nullptr) {
        outputEncodingBefore = useUtf8(GetConsoleOutputCP, SetConsoleOutputCP);
        changedConsole = useEscapeSequences(console);
    }
    if (isConsole(GetStdHandle(STD_INPUT_HANDLE))) {
        inputEncodingBefore = useUtf8(GetConsoleCP, SetConsoleCP);
    }
    if (outputEncodingBefore != 0 || inputEncodingBefore != 0 || changedConsole != nullptr) {
        std::atexit(restoreAtExit);
        SetConsoleCtrlHandler(restoreOnCtrl, TRUE);
    }
}

void Kelpkit::restoreConsole() {
    restoreMode();
    restoreEncoding(outputEncodingBefore, GetConsoleOutputCP, SetConsoleOutputCP);
    restoreEncoding(inputEncodingBefore, GetConsoleCP, SetConsoleCP);
}

bool Kelpkit::isStandardOutputOpen() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    return output != nullptr && output != INVALID_HANDLE_VALUE;
}
