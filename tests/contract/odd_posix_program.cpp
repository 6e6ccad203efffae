// What programs do around a wait on systems with processes, threads and signals of POSIX: odd_posix_program WHAT.
// Standard output carries what is under test; what a call returned goes to standard error.
#include <fcntl.h>
#include <kelplib/Kelp.h>
#include <kelplib/KelpProgress.h>
#include <pthread.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <string>

namespace {

constexpr unsigned int longSeconds = 600;

void printError(int result) {
    static_cast<void>(std::fprintf(stderr, "%d\n", result));
}

/// The program's standard input from now on: a pipe that holds `keys` and stays open.
void takeInputFrom(const std::string& keys) {
    int ends[2];
    if (pipe(ends) != 0 || dup2(ends[0], STDIN_FILENO) == -1 ||
        write(ends[1], keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) {
        std::_Exit(1);
    }
}

/// The child has none of its parent's readers, so that its own takes the first key.
void forkAfterAWait() {
    Kelp::waitOrPressKey(0, "left");
    const pid_t child = fork();
    if (child == 0) {
        takeInputFrom("k");
        Kelp::waitOrPressKey(longSeconds, "in the child");
        std::_Exit(5);
    }
    int status = 0;
    waitpid(child, &status, 0);
    printError(WEXITSTATUS(status));
}

void readFromACommand() {
    Kelp::waitOrPressKey(0, "left");
    FILE* const command = popen("echo from the command", "r");  // NOLINT(cert-env33-c): it is what is under test
    char line[64] = "";
    if (command == nullptr || std::fgets(line, sizeof line, command) == nullptr) {
        std::_Exit(1);
    }
    std::cout << line;
    printError(pclose(command));
}

std::atomic<bool> unwound = false;

struct NotesUnwinding {
    ~NotesUnwinding() {
        unwound = true;
    }
};

std::ptrdiff_t countThreads() {
    const std::filesystem::directory_iterator threads("/proc/self/task");
    return std::distance(begin(threads), end(threads));
}

/// A cancelled wait leaves its reader, as one does whose time is over: the next key is that reader's.
void cancelAWait() {
    const auto before = countThreads();
    pthread_t waiting{};
    const auto wait = [](void* /*unused*/) -> void* {
        const NotesUnwinding noted;
        Kelp::waitOrPressKey(longSeconds, "cancelled");
        return nullptr;
    };
    void* result = nullptr;
    if (pthread_create(&waiting, nullptr, wait, nullptr) != 0) {
        std::_Exit(1);
    }
    // Once its reader has started, the wait can only be cancelled in a sleep.
    while (countThreads() < before + 2) {
        KELP_sleep(10);
    }
    pthread_cancel(waiting);
    pthread_join(waiting, &result);
    printError(result == PTHREAD_CANCELED && unwound ? 1 : 0);
    Kelp::waitOrPressKey(longSeconds, "next");
}

/// A program that keeps its terminal from stopping it, in the background or not.
void blockTerminalInput() {
    sigset_t signals{};
    sigemptyset(&signals);
    sigaddset(&signals, SIGTTIN);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    Kelp::waitOrPressKey(1, "blocked");
}

void wait() {
    Kelp::waitOrPressKey(1, "waiting");
}

void waitUnsynchronized() {
    std::ios::sync_with_stdio(false);
    wait();
}

/// The stream is as bad as if the caller had read it.
void readWhatCannotBeRead() {
    std::ios::sync_with_stdio(false);
    Kelp::waitOrPressKey(longSeconds, "unreadable");
    printError(std::cin.bad() ? 1 : 0);
}

void waitForAKey() {
    Kelp::waitOrPressKey(longSeconds, "waiting");
}

/// An empty input that does not wait is no end of the input.
void readWithoutWaiting() {
    fcntl(STDIN_FILENO, F_SETFL, fcntl(STDIN_FILENO, F_GETFL) | O_NONBLOCK);
    Kelp::waitOrPressKey(1, "empty");
    printError(std::cin.eof() ? 1 : 0);
}

/// The end that the C library has seen lasts, although a terminal could go on.
void waitAfterTheEnd() {
    while (std::getchar() != EOF) {
    }
    Kelp::waitOrPressKey(longSeconds, "ended");
    printError(std::cin.eof() ? 1 : 0);
}

/// A system that lets the process have no descriptors cannot wait for them.
void waitWithoutDescriptors() {
    const rlimit none{0, 0};
    setrlimit(RLIMIT_NOFILE, &none);
    Kelp::waitOrPressKey(longSeconds, "without descriptors");
}

struct Command {
    const char* name;
    void (*run)();
};

constexpr Command commands[] = {
    {"fork", forkAfterAWait},
    {"popen", readFromACommand},
    {"cancel", cancelAWait},
    {"block", blockTerminalInput},
    {"wait", wait},
    {"wait-unsynchronized", waitUnsynchronized},
    {"wait-for-a-key", waitForAKey},
    {"unreadable", readWhatCannotBeRead},
    {"without-waiting", readWithoutWaiting},
    {"after-the-end", waitAfterTheEnd},
    {"without-descriptors", waitWithoutDescriptors},
};

}  // namespace

int main(int argc, char** argv) {
    const std::string what = argc == 2 ? argv[1] : "";
    for (const Command& command : commands) {
        if (what == command.name) {
            command.run();
            return 0;
        }
    }
    std::cerr << "odd_posix_program: no such call\n";
    return 2;
}
