#include "interruption.h"

#include <csignal>
#include <ctime>
#include <initializer_list>

namespace {

void (*noteEnding)(int) = nullptr;

/// A signal that arrives just before a write blocks does not end the write. So a timer sends another one every second.
timer_t everySecond{};

}  // namespace

extern "C" {
static void noteAndRepeat(int signal) {
    noteEnding(signal);
    const itimerspec aSecond{{1, 0}, {1, 0}};
    timer_settime(everySecond, 0, &aSecond, nullptr);
}

static void interrupt(int /*signal*/) {}
}

void common::onEndingSignals(void (*note)(int)) {
    noteEnding = note;
    // No SA_RESTART: signals also end a write that waits for its reader. With SIGXFSZ handled, a write beyond the limit of
    // file sizes fails and can be reported.
    struct sigaction action {};
    action.sa_handler = interrupt;
    sigaction(SIGALRM, &action, nullptr);
    struct sigevent alarm {};
    alarm.sigev_notify = SIGEV_SIGNAL;
    alarm.sigev_signo = SIGALRM;
    timer_create(CLOCK_MONOTONIC, &alarm, &everySecond);
    action.sa_handler = noteAndRepeat;
    for (const int signal : {SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGTERM, SIGXCPU, SIGXFSZ}) {
        struct sigaction before {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) {
            sigaction(signal, &action, nullptr);
        }
    }
}
