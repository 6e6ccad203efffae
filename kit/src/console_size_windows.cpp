#include <io.h>
#include <windows.h>

#include <cstdio>
#include <string_view>

#include "console_size.h"

namespace Kelpkit {

namespace {

/// Whether a pipe belongs to a terminal of MSYS or Cygwin: its name is like "\msys-1888ae32e00d56aa-pty0-to-master".
bool isTerminalPipe(HANDLE pipe) {
    struct {
        FILE_NAME_INFO info;
        wchar_t more[MAX_PATH];
    } name{};
    if (GetFileType(pipe) != FILE_TYPE_PIPE ||
        GetFileInformationByHandleEx(pipe, FileNameInfo, &name, sizeof name) == 0) {
        return false;
    }
    const std::wstring_view text(name.info.FileName, name.info.FileNameLength / sizeof(wchar_t));
    const bool known = text.rfind(L"\\msys-", 0) == 0 || text.rfind(L"\\cygwin-", 0) == 0;
    return known && text.find(L"-pty") != std::wstring_view::npos &&
           text.find(L"-to-master") != std::wstring_view::npos;
}

}  // namespace

ConsoleSize consoleSize() {
    // A closed standard output has the descriptor -1 or -2.
    const int descriptor = _fileno(stdout);
    const auto handle = descriptor < 0 ? INVALID_HANDLE_VALUE : reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(handle, &info) != 0) {
        return {info.srWindow.Right - info.srWindow.Left + 1, info.srWindow.Bottom - info.srWindow.Top + 1};
    }
    return isTerminalPipe(handle) ? ConsoleSize{80, 24} : ConsoleSize{0, 0};
}

}  // namespace Kelpkit
