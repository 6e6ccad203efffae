#include "platform/platform.h"

#include <direct.h>
#include <windows.h>

#include <cstdio>
#include <utility>

namespace Kelp::platform {

double monotonicSeconds() {
    LARGE_INTEGER frequency;
    LARGE_INTEGER counter;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&counter);
    return static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

void sleepMilliseconds(unsigned int milliseconds) {
    Sleep(milliseconds);
}

int rewindCursor(unsigned int lines) {
    std::fflush(stdout);
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    if (console == nullptr || console == INVALID_HANDLE_VALUE) {
        return -1;
    }
    CONSOLE_SCREEN_BUFFER_INFO screen;
    if (GetConsoleScreenBufferInfo(console, &screen) == 0) {
        return 0;
    }
    // A row above the buffer is the console's to refuse; a row that does not fit a SHORT must not wrap into it.
    const long long row = static_cast<long long>(screen.dwCursorPosition.Y) - static_cast<long long>(lines);
    const COORD target{0, static_cast<SHORT>(row < -1 ? -1 : row)};
    return SetConsoleCursorPosition(console, target);
}

std::thread startThread(std::function<void()> run) {
    return std::thread(std::move(run));
}

std::string currentDirectory() {
    char buffer[260];
    const char* directory = _getcwd(buffer, static_cast<int>(sizeof buffer));
    return directory == nullptr ? std::string() : std::string(directory);
}

}  // namespace Kelp::platform
