#include "platform/platform.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <utility>

namespace {

/// While it lives, signals wait or go to other threads; a new thread begins like the one that starts it.
class SignalsHeldBack {
public:
    SignalsHeldBack() {
        sigset_t all{};
        sigfillset(&all);
        // The system answers a program in the background that reads its terminal with this one, and stops it; where it cannot,
        // the read fails.
        sigdelset(&all, SIGTTIN);
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

std::thread startThread(std::function<void()> run) {
    const SignalsHeldBack heldBack;
    return std::thread(std::move(run));
}

std::string currentDirectory() {
    char buffer[260];
    const char* directory = getcwd(buffer, sizeof buffer);
    return directory == nullptr ? std::string() : std::string(directory);
}

}  // namespace Kelp::platform
