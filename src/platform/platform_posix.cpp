#include "platform/platform.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <langinfo.h>
#include <poll.h>
#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <optional>
#include <utility>

namespace {

constexpr unsigned int backgroundMilliseconds = 100;

/// Blocks all signals in the calling thread while it exists. A thread that starts meanwhile inherits the mask.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all{};
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before);
    }
    ~SignalsBlocked() {
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

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

/// Whether getc(stdin) returns at once, from its buffer or because the stream is at its end. POSIX has no such call, so this
/// reads glibc's members of FILE (seen with 2.36 and 2.41). After ungetc() the buffer is in the save area.
bool hasBufferedInput() {
    constexpr int readsPushedBack = 0x100;
    return stdin->_IO_read_ptr < stdin->_IO_read_end ||
           ((stdin->_flags & readsPushedBack) != 0 && stdin->_IO_save_base < stdin->_IO_save_end) ||
           std::feof(stdin) != 0;
}

/// Waits for input.
/// \param milliseconds  0 (returns at once) or -1 (no limit)
/// \returns whether there is something to read, or only reading can tell
bool pollInput(int descriptor, int milliseconds) {
    pollfd input{};
    input.fd = descriptor;
    input.events = POLLIN;
    const int ready = poll(&input, 1, milliseconds);
    // poll() fails with EINVAL if the process may open no descriptors (RLIMIT_NOFILE is 0). Then the read itself has to wait.
    return ready > 0 || (ready == -1 && errno == EINVAL);
}

/// Whether reading fails at once. poll() would wait for a descriptor that is open for writing only.
bool cannotBeRead(int descriptor) {
    return descriptor < 0 || (fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_WRONLY;
}

bool isInBackground(int descriptor) {
    const pid_t foreground = tcgetpgrp(descriptor);
    return foreground != -1 && foreground != getpgrp();
}

bool isReady(int descriptor) {
    return cannotBeRead(descriptor) || (pollInput(descriptor, 0) && !isInBackground(descriptor));
}

/// Locks stdin for the calling thread while it exists.
class StdinLock {
public:
    StdinLock() {
        flockfile(stdin);
    }
    ~StdinLock() {
        funlockfile(stdin);
    }
    StdinLock(const StdinLock&) = delete;
    StdinLock& operator=(const StdinLock&) = delete;
};

/// \returns whether the input was ready, so that `read` was called
bool readIfReady(int descriptor, bool throughCLibrary, const std::function<void()>& read) {
    std::optional<StdinLock> lock;
    if (throughCLibrary) {
        lock.emplace();
    }
    const bool ready = (throughCLibrary && hasBufferedInput()) || isReady(descriptor);
    if (ready) {
        read();
    }
    return ready;
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

void whenInputIsReady(bool throughCLibrary, const std::function<void()>& read) {
    const int descriptor = fileno(stdin);
    while (!readIfReady(descriptor, throughCLibrary, read)) {
        if (!pollInput(descriptor, -1) || isInBackground(descriptor)) {
            sleepMilliseconds(backgroundMilliseconds);
        }
    }
}

std::thread startThread(std::function<void()> run) {
    stayLoaded();
    const SignalsBlocked blocked;
    return std::thread(std::move(run));
}

void callInForkedChild(void (*handler)()) {
    pthread_atfork(nullptr, nullptr, handler);
}

bool printsDecimalPoint() {
    const char* const point = nl_langinfo(RADIXCHAR);
    return point[0] == '.' && point[1] == '\0';
}

std::string currentDirectory() {
    char buffer[260];
    const char* directory = getcwd(buffer, sizeof buffer);
    return directory == nullptr ? std::string() : std::string(directory);
}

}  // namespace Kelp::platform
