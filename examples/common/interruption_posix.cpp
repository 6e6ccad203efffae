#include "interruption.h"

#include <csignal>
#include <ctime>
#include <initializer_list>

namespace {

void (*noteEnding)(int) = nullptr;

/// A signal that comes just before a write begins to wait does not end that wait. So after one another comes every second.
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
    // No SA_RESTART: a write that waits for somebody to read ends too. SIGXFSZ is here because a write beyond the limit of
    // file sizes then fails and can be told.
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
