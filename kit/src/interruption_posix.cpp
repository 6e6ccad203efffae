#include <unistd.h>

#include <csignal>
#include <ctime>
#include <initializer_list>

#include "ending_signals.h"

namespace {

/// A signal that arrives just before a write blocks does not end the write, and a read may go on after it. So a timer sends
/// another one every second.
timer_t everySecond{};
bool hasTimer = false;

volatile std::sig_atomic_t hasTicked = 0;

/// Without SA_RESTART, so that signals also end a write that waits for its reader.
/// \returns whether the signal had no handler and was not ignored; otherwise nothing changes
bool handle(int signal, void (*handler)(int)) {
    struct sigaction before {};
    if (sigaction(signal, nullptr, &before) != 0 || before.sa_handler != SIG_DFL) {
        return false;
    }
    struct sigaction action {};
    action.sa_handler = handler;
    return sigaction(signal, &action, nullptr) == 0;
}

}  // namespace

extern "C" {
static void interrupt(int /*signal*/) {}

static void tick(int /*signal*/) {
    // The first one ends a write that blocks, so that the tool can end in order.
    if (hasTicked == 0) {
        hasTicked = 1;
    } else {
        Kelpkit::forceEnd();
    }
}

static void noteAndRepeat(int signal) {
    if (Kelpkit::noteSignal(signal)) {
        // Until now SIGALRM keeps its meaning.
        if (hasTimer && handle(SIGALRM, tick)) {
            const itimerspec aSecond{{1, 0}, {1, 0}};
            timer_settime(everySecond, 0, &aSecond, nullptr);
        }
    } else if (signal != SIGPIPE) {
        // A tool that has lost its reader may write several times before it looks for the signal.
        Kelpkit::forceEnd();
    }
}
}

namespace Kelpkit {

void onEndingSignals() {
    struct sigevent alarm {};
    alarm.sigev_notify = SIGEV_SIGNAL;
    alarm.sigev_signo = SIGALRM;
    hasTimer = timer_create(CLOCK_MONOTONIC, &alarm, &everySecond) == 0;
    handle(SIGXFSZ, interrupt);
    for (const int signal : {SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGTERM, SIGXCPU}) {
        handle(signal, noteAndRepeat);
    }
}

bool isLostReader(int signal) {
    return signal == SIGPIPE;
}

void endBySignal(int signal) {
    std::signal(signal, SIG_DFL);
    sigset_t only;
    sigemptyset(&only);
    sigaddset(&only, signal);
    pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
    std::raise(signal);
    _exit(128 + signal);
}

}  // namespace Kelpkit
