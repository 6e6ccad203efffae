#include "interruption.h"

#include <csignal>
#include <cstdlib>

namespace {

volatile std::sig_atomic_t notedSignal = 0;

}  // namespace

extern "C" {
static void noteSignal(int signal) {
    notedSignal = signal;
}
}

namespace common {

void noteInterruptions() {
    onEndingSignals(noteSignal);
}

void checkInterruption() {
    if (notedSignal != 0) {
        throw Interruption{notedSignal};
    }
}

void endBy(const Interruption& interruption) {
    std::signal(interruption.signal, SIG_DFL);
    std::raise(interruption.signal);
    std::exit(EXIT_FAILURE);
}

}  // namespace common
