// Waits in programs that use POSIX processes, threads and signals: odd_posix_program COMMAND.
// Standard output carries what is under test, standard error the results of calls.
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
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <thread>

#ifdef __GLIBCXX__
#include <ext/stdio_filebuf.h>
#include <ext/stdio_sync_filebuf.h>
#endif

#include "commands.h"

namespace {

constexpr unsigned int longSeconds = 600;

/// Replaces standard input by a pipe that holds `keys` and stays open.
void takeInputFrom(const std::string& keys) {
    int ends[2];
    if (pipe(ends) != 0 || dup2(ends[0], STDIN_FILENO) == -1 ||
        write(ends[1], keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) {
        std::_Exit(1);
    }
}

/// The child inherits no reader from its parent, so its own reader takes the first key.
void forkAfterAWait(void (*endChild)(int)) {
    Kelp::waitOrPressKey(0, "left");
    const pid_t child = fork();
    if (child == 0) {
        takeInputFrom("k");
        Kelp::waitOrPressKey(longSeconds, "in the child");
        endChild(5);
    }
    int status = 0;
    waitpid(child, &status, 0);
    printResult(WEXITSTATUS(status));
}

void forkAndExit() {
    forkAfterAWait(std::exit);
}

/// For sanitizers, which at exit look for the threads of the parent.
void forkAndEndAtOnce() {
    forkAfterAWait(std::_Exit);
}

void readFromACommand() {
    Kelp::waitOrPressKey(0, "left");
    FILE* const command = popen("echo from the command", "r");  // NOLINT(cert-env33-c): it is what is under test
    char line[64] = "";
    if (command == nullptr || std::fgets(line, sizeof line, command) == nullptr) {
        std::_Exit(1);
    }
    std::cout << line;
    printResult(pclose(command));
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

/// A cancelled wait leaves its reader running, like a wait that timed out: that reader takes the next key.
void cancelAWait() {
    // ThreadSanitizer (seen with gcc 12) starts a thread of its own with the first one of the program, which the system may still
    // list for a moment after its end.
    std::thread([] {}).join();
    KELP_sleep(100);
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
    // Once the reader runs, only a sleep of the wait can be cancelled.
    while (countThreads() < before + 2) {
        KELP_sleep(10);
    }
    pthread_cancel(waiting);
    pthread_join(waiting, &result);
    printResult(result == PTHREAD_CANCELED && unwound ? 1 : 0);
    Kelp::waitOrPressKey(longSeconds, "next");
}

/// A program that blocks the signal with which a terminal stops background jobs.
void blockTerminalInput() {
    sigset_t signals{};
    sigemptyset(&signals);
    sigaddset(&signals, SIGTTIN);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    Kelp::waitOrPressKey(1, "blocked");
}

/// A wait that leaves the processor to others.
void wait() {
    const std::clock_t before = std::clock();
    Kelp::waitOrPressKey(1, "waiting");
    if (std::clock() - before > CLOCKS_PER_SEC / 10) {
        std::_Exit(3);
    }
}

void waitUnsynchronized() {
    std::ios::sync_with_stdio(false);
    wait();
}

/// Sets badbit on std::cin, as a failed read by the caller would.
void readWhatCannotBeRead() {
    std::ios::sync_with_stdio(false);
    Kelp::waitOrPressKey(longSeconds, "unreadable");
    printResult(std::cin.bad() ? 1 : 0);
}

void waitForAKey() {
    Kelp::waitOrPressKey(longSeconds, "waiting");
}

/// An empty non-blocking input is not at its end.
void readWithoutWaiting() {
    fcntl(STDIN_FILENO, F_SETFL, fcntl(STDIN_FILENO, F_GETFL) | O_NONBLOCK);
    Kelp::waitOrPressKey(1, "empty");
    printResult(std::cin.eof() ? 1 : 0);
}

// An unsynchronized stream does not depend on what the C library has buffered or locked.

void waitBesideBufferedInput() {
    std::ios::sync_with_stdio(false);
    std::ungetc('u', stdin);
    readWithoutWaiting();
}

void waitBesideALock() {
    std::ios::sync_with_stdio(false);
    flockfile(stdin);
    waitForAKey();
    funlockfile(stdin);
}

/// Once the C library has seen the end of the input, it stays at the end, although a terminal could deliver more.
void waitAfterTheEnd() {
    while (std::getchar() != EOF) {
    }
    Kelp::waitOrPressKey(longSeconds, "ended");
    printResult(std::cin.eof() ? 1 : 0);
}

/// Takes the buffer from the stream until the reader of an earlier wait has had a key.
void leaveReaderWithoutBuffer() {
    Kelp::waitOrPressKey(0, "left");
    const auto withReader = countThreads();
    std::streambuf* const buffer = std::cin.rdbuf(nullptr);
    printResult(1);
    while (countThreads() == withReader) {
        KELP_sleep(1);
    }
    std::cin.rdbuf(buffer);
}

/// The reader takes the key from stdin.
void muteInput() {
    leaveReaderWithoutBuffer();
    std::printf("%c\n", std::getchar());
}

/// The reader fails and leaves the key to the next wait.
void muteUnsynchronizedInput() {
    std::ios::sync_with_stdio(false);
    leaveReaderWithoutBuffer();
    Kelp::waitOrPressKey(longSeconds, "next");
}

/// Returns the reading end of a pipe that holds two keys. libc++ (seen with 14) reads a file until its buffer is full, so the
/// pipe ends after them.
int openKeys() {
    int ends[2];
    if (pipe(ends) != 0 || write(ends[1], "ab", 2) != 2 || close(ends[1]) != 0) {
        std::_Exit(1);
    }
    return ends[0];
}

void readFrom(std::streambuf& file) {
    std::streambuf* const before = std::cin.rdbuf(&file);
    Kelp::waitOrPressKey(longSeconds, "another file");
    std::cout << static_cast<char>(std::cin.get()) << "\n";
    std::cin.rdbuf(before);
}

/// A program's own buffer. Like libstdc++'s for std::cin it starts with a file, but it does not read it.
class OwnBuffer : public std::streambuf {
public:
    OwnBuffer() {
        setg(keys, keys, keys + sizeof keys);
    }

    std::FILE* file = stdin;

private:
    char keys[2] = {'a', 'b'};
};

/// Reads keys from files other than stdin, through buffers of the types that std::cin itself has.
void readFromOtherFiles() {
    OwnBuffer buffer;
    readFrom(buffer);
#ifdef __GLIBCXX__
    __gnu_cxx::stdio_filebuf<char> file(openKeys(), std::ios::in);
    readFrom(file);
    __gnu_cxx::stdio_sync_filebuf<char> synchronizedFile(fdopen(openKeys(), "r"));
    readFrom(synchronizedFile);
#else
    for (int i = 0; i < 2; ++i) {
        std::filebuf file;
        file.open("/dev/fd/" + std::to_string(openKeys()), std::ios::in);
        readFrom(file);
    }
#endif
}

/// poll() fails if the limit on descriptors is 0.
void waitWithoutDescriptors() {
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    Kelp::waitOrPressKey(longSeconds, "without descriptors");
    setrlimit(RLIMIT_NOFILE, &before);
}

constexpr Command<> commands[] = {
    {"fork", forkAndExit},
    {"fork-and-end-at-once", forkAndEndAtOnce},
    {"popen", readFromACommand},
    {"cancel", cancelAWait},
    {"block", blockTerminalInput},
    {"wait", wait},
    {"wait-unsynchronized", waitUnsynchronized},
    {"wait-for-a-key", waitForAKey},
    {"unreadable", readWhatCannotBeRead},
    {"without-waiting", readWithoutWaiting},
    {"beside-buffered-input", waitBesideBufferedInput},
    {"beside-a-lock", waitBesideALock},
    {"after-the-end", waitAfterTheEnd},
    {"without-descriptors", waitWithoutDescriptors},
    {"muted-input", muteInput},
    {"muted-unsynchronized-input", muteUnsynchronizedInput},
    {"other-files", readFromOtherFiles},
};

}  // namespace

int main(int argc, char** argv) {
    return runCommand(commands, argc == 2 ? argv[1] : "");
}
