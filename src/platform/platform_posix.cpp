#include "platform/platform.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <utility>

namespace {

constexpr unsigned int backgroundMilliseconds = 100;

/// While it lives, signals wait or go to other threads; a new thread begins like the one that starts it.
class SignalsHeldBack {
public:
    SignalsHeldBack() {
        sigset_t all{};
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before);
    }
    ~SignalsHeldBack() {
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }
    SignalsHeldBack(const SignalsHeldBack&) = delete;
    SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;

private:
    sigset_t before{};
};

/// Keeps the library in memory until the process ends.
void stayLoaded() {
    Dl_info self{};
    if (dladdr(reinterpret_cast<const void*>(&stayLoaded), &self) != 0) {
        dlopen(self.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
    }
}

/// Whether the C library has characters of standard input that it has not handed on. POSIX has no call for that, so this
/// looks at glibc's members of FILE (seen with 2.36 and 2.41). After ungetc() the buffer itself may be the saved area.
bool hasBufferedCharacters() {
    constexpr int readsPushedBack = 0x100;
    return stdin->_IO_read_ptr < stdin->_IO_read_end ||
           ((stdin->_flags & readsPushedBack) != 0 && stdin->_IO_save_base < stdin->_IO_save_end);
}

bool takeBufferedCharacter() {
    flockfile(stdin);
    const bool taken = hasBufferedCharacters() && std::getc(stdin) != EOF;
    funlockfile(stdin);
    return taken;
}

bool isInBackground() {
    const pid_t foreground = tcgetpgrp(STDIN_FILENO);
    return foreground != -1 && foreground != getpgrp();
}

void waitForInput() {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    while (poll(&input, 1, -1) == -1 || isInBackground()) {
        // Also where the system refuses to wait, for lack of memory: another try comes later.
        Kelp::platform::sleepMilliseconds(backgroundMilliseconds);
    }
}

/// Whether reading failed only because another reader, or another program that uses the terminal, was faster.
bool mayReadLater() {
    return errno == EINTR || errno == EAGAIN || (errno == EIO && isInBackground());
}

}  // namespace

namespace Kelp::platform {

double monotonicSeconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void sleepMilliseconds(unsigned int milliseconds) {
    timespec left{};
    left.tv_sec = static_cast<time_t>(milliseconds / 1000);
    left.tv_nsec = static_cast<long>(milliseconds % 1000) * 1000000L;
    while (nanosleep(&left, &left) == -1 && errno == EINTR) {
    }
}

int rewindCursor(unsigned int lines) {
    std::fflush(stdout);
    if (isatty(STDOUT_FILENO) == 0) {
        const bool closed = fcntl(STDOUT_FILENO, F_GETFD) == -1;
        return closed ? -1 : 0;
    }
    // "Cursor up 0" moves up one row on most terminals, so it is not sent.
    if (lines == 0) {
        std::fputs("\r", stdout);
    } else {
        std::fprintf(stdout, "\033[%uA\r", lines);
    }
    std::fflush(stdout);
    return 1;
}

bool readCharacter(bool throughCLibrary) {
    if (throughCLibrary && takeBufferedCharacter()) {
        return true;
    }
    char character = '\0';
    ssize_t count = 0;
    do {
        waitForInput();
        count = read(STDIN_FILENO, &character, 1);
    } while (count == -1 && mayReadLater());
    return count == 1;
}

std::thread startThread(std::function<void()> run) {
    stayLoaded();
    const SignalsHeldBack heldBack;
    return std::thread(std::move(run));
}

void callInForkedChild(void (*handler)()) {
    pthread_atfork(nullptr, nullptr, handler);
}

std::string currentDirectory() {
    char buffer[260];
    const char* directory = getcwd(buffer, sizeof buffer);
    return directory == nullptr ? std::string() : std::string(directory);
}

}  // namespace Kelp::platform
