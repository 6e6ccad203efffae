// A help screen, a sleep or a wait while signals keep arriving: interrupted_tool screen, interrupted_tool sleep MILLISECONDS
// or interrupted_tool wait SECONDS. At exit it prints how many signals its handler has counted.
#include <kelplib/CommandLineTool.h>
#include <sys/time.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include "platform/platform.h"

namespace {

std::atomic<int> handled = 0;
std::atomic<int> handledElsewhere = 0;

void count(int /*signal*/) {
    ++handled;
    if (gettid() != getpid()) {
        ++handledElsewhere;
    }
}

/// Sends the process a signal every 10 ms. Without SA_RESTART the system does not resume interrupted calls.
bool startSignals() {
    struct sigaction action {};
    action.sa_handler = count;
    itimerval period{};
    period.it_interval.tv_usec = 10'000;
    period.it_value.tv_usec = 10'000;
    return sigaction(SIGALRM, &action, nullptr) == 0 && setitimer(ITIMER_REAL, &period, nullptr) == 0;
}

/// Sends signals to every other thread of the process; the system itself would pick the main thread.
void signalOtherThreads() {
    const pid_t own = gettid();
    while (true) {
        for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) {
            const pid_t thread = std::stoi(entry.path().filename().string());
            if (thread != own) {
                tgkill(getpid(), thread, SIGALRM);
            }
        }
        Kelp::platform::sleepMilliseconds(10);
    }
}

/// Starts that thread with the signal blocked: a new thread inherits the mask.
void startSignalsToOtherThreads() {
    sigset_t signals{};
    sigaddset(&signals, SIGALRM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::thread(signalOtherThreads).detach();
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

void printHandled() {
    std::printf("%d signals\n", handled.load());
}

}  // namespace

int main(int argc, char** argv) {
    const std::string command = argc > 1 ? argv[1] : "";
    if (std::atexit(printHandled) != 0 || !startSignals()) {
        return 1;
    }
    if (command == "screen") {
        const CommandLineTool tool(argc, argv, "Waits.");
        tool.printUsage();
    }
    if (command == "sleep" && argc == 3) {
        const double start = Kelp::platform::monotonicSeconds();
        Kelp::platform::sleepMilliseconds(static_cast<unsigned int>(std::stoul(argv[2])));
        std::printf("%.9f\n", Kelp::platform::monotonicSeconds() - start);
        return 0;
    }
    if (command == "wait" && argc == 3) {
        startSignalsToOtherThreads();
        const double start = Kelp::platform::monotonicSeconds();
        Kelp::waitOrPressKey(static_cast<unsigned int>(std::stoul(argv[2])), "waiting");
        std::printf("%.9f\n", Kelp::platform::monotonicSeconds() - start);
        // The thread that waited still receives signals.
        const int before = handled;
        std::raise(SIGALRM);
        if (handled == before) {
            return 3;
        }
        // The library's own thread has left all signals to the threads of the program.
        return handledElsewhere == 0 ? 0 : 4;
    }
    return 2;
}
