#include "interruption.h"

#include <csignal>
#include <initializer_list>

namespace {

void (*noteSignal)(int) = nullptr;

}  // namespace

extern "C" {
/// The system removes a handler when it calls it.
static void noteAndReinstall(int signal) {
    std::signal(signal, noteAndReinstall);
    noteSignal(signal);
}
}

void common::onEndingSignals(void (*note)(int)) {
    noteSignal = note;
    for (const int signal : {SIGINT, SIGTERM, SIGBREAK}) {
        if (std::signal(signal, noteAndReinstall) == SIG_IGN) {
            std::signal(signal, SIG_IGN);
        }
    }
}
