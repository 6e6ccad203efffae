#include "platform/platform.h"

#include <direct.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr DWORD pollMilliseconds = 50;

/// Keeps the library in memory until the process ends.
void stayLoaded() {
    HMODULE self = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const char*>(&stayLoaded), &self);
}

/// Whether getc(stdin) returns at once, from its buffer or because the stream is at its end. Windows has no such call, so this
/// reads a member of msvcrt's FILE.
bool hasBufferedInput() {
    return stdin->_cnt > 0 || std::feof(stdin) != 0;
}

bool isKey(const INPUT_RECORD& event, bool collectsLines) {
    const KEY_EVENT_RECORD& key = event.Event.KeyEvent;
    const wchar_t character = key.uChar.UnicodeChar;
    return event.EventType == KEY_EVENT && key.bKeyDown != 0 && (collectsLines ? character == L'\r' : character != 0);
}

/// Whether reading a console returns at once: it holds a whole line in line mode, otherwise a character. Its other events (keys
/// released, mouse, window) do not count.
bool hasConsoleInput(HANDLE console, DWORD mode) {
    DWORD count = 0;
    GetNumberOfConsoleInputEvents(console, &count);
    // wine (seen with 8.0) fetches no events unless at least one is asked for.
    std::vector<INPUT_RECORD> events(count + 1);
    if (PeekConsoleInputW(console, events.data(), count + 1, &count) == 0) {
        return true;
    }
    return std::any_of(events.begin(), events.begin() + count,
                       [mode](const INPUT_RECORD& event) { return isKey(event, (mode & ENABLE_LINE_INPUT) != 0); });
}

/// Whether reading returns at once, as it does for a file, a closed handle and a broken pipe. A pipe that cannot be peeked at
/// counts as ready: wine (seen with 8.0) cannot peek at pipes of its host.
bool hasInput(HANDLE input) {
    DWORD available = 0;
    DWORD mode = 0;
    switch (GetFileType(input)) {
        case FILE_TYPE_PIPE:
            return PeekNamedPipe(input, nullptr, 0, nullptr, &available, nullptr) == 0 || available > 0;
        case FILE_TYPE_CHAR:
            return GetConsoleMode(input, &mode) == 0 || hasConsoleInput(input, mode);
        default:
            return true;
    }
}

/// Locks stdin for the calling thread while it exists.
class StdinLock {
public:
    StdinLock() {
        _lock_file(stdin);
    }
    ~StdinLock() {
        _unlock_file(stdin);
    }
    StdinLock(const StdinLock&) = delete;
    StdinLock& operator=(const StdinLock&) = delete;
};

/// \returns whether the input was ready, so that `read` was called
bool readIfReady(HANDLE input, bool throughCLibrary, const std::function<void()>& read) {
    std::optional<StdinLock> lock;
    if (throughCLibrary) {
        lock.emplace();
    }
    const bool ready = (throughCLibrary && hasBufferedInput()) || hasInput(input);
    if (ready) {
        read();
    }
    return ready;
}

}  // namespace

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
    // The console refuses row -1. A lower row might wrap to a valid one in a SHORT.
    const long long row = static_cast<long long>(screen.dwCursorPosition.Y) - static_cast<long long>(lines);
    const COORD target{0, static_cast<SHORT>(row < -1 ? -1 : row)};
    return SetConsoleCursorPosition(console, target);
}

void whenInputIsReady(bool throughCLibrary, const std::function<void()>& read) {
    const int descriptor = _fileno(stdin);
    const auto input = descriptor < 0 ? INVALID_HANDLE_VALUE : reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
    while (!readIfReady(input, throughCLibrary, read)) {
        Sleep(pollMilliseconds);
    }
}

std::thread startThread(std::function<void()> run) {
    stayLoaded();
    return std::thread(std::move(run));
}

/// Windows has no fork().
void callInForkedChild(void (* /*handler*/)()) {}

bool printsDecimalPoint() {
    constexpr char zero[] = "0.";
    char* end = nullptr;
    std::strtod(zero, &end);
    return end == zero + 2;
}

std::string currentDirectory() {
    char buffer[260];
    const char* directory = _getcwd(buffer, static_cast<int>(sizeof buffer));
    return directory == nullptr ? std::string() : std::string(directory);
}

}  // namespace Kelp::platform
