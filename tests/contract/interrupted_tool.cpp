// A help screen, a sleep or a wait under a rain of signals: interrupted_tool screen, sleep MILLISECONDS, or wait SECONDS. At
// the end it says how many signals its handler saw.
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

/// One signal every 10 ms, without the flag that has the system go on with an interrupted call.
bool letItRain() {
    struct sigaction action {};
    action.sa_handler = count;
    itimerval period{};
    period.it_interval.tv_usec = 10'000;
    period.it_value.tv_usec = 10'000;
    return sigaction(SIGALRM, &action, nullptr) == 0 && setitimer(ITIMER_REAL, &period, nullptr) == 0;
}

/// Signals for each other thread of the process: the system itself would pick the main one.
void rainOnEveryThread() {
    sigset_t signals{};
    sigaddset(&signals, SIGALRM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
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

void printHandled() {
    std::printf("%d signals\n", handled.load());
}

}  // namespace

int main(int argc, char** argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    if (std::atexit(printHandled) != 0 || !letItRain()) {
        return 1;
    }
    if (what == "screen") {
        const CommandLineTool tool(argc, argv, "Waits.");
        tool.printUsage();
    }
    if (what == "sleep" && argc == 3) {
        const double start = Kelp::platform::monotonicSeconds();
        Kelp::platform::sleepMilliseconds(static_cast<unsigned int>(std::stoul(argv[2])));
        std::printf("%.9f\n", Kelp::platform::monotonicSeconds() - start);
        return 0;
    }
    if (what == "wait" && argc == 3) {
        std::thread(rainOnEveryThread).detach();
        const double start = Kelp::platform::monotonicSeconds();
        Kelp::waitOrPressKey(static_cast<unsigned int>(std::stoul(argv[2])), "waiting");
        std::printf("%.9f\n", Kelp::platform::monotonicSeconds() - start);
        // The thread that waited handles its signals as before.
        const int before = handled;
        std::raise(SIGALRM);
        if (handled == before) {
            return 3;
        }
        // The library's own thread leaves the signals to those of the program.
        return handledElsewhere == 0 ? 0 : 4;
    }
    return 2;
}
