#include <csignal>
#include <cstdlib>
#include <initializer_list>

#include "console.h"
#include "ending_signals.h"

extern "C" {
/// The system removes a handler when it calls it.
static void noteAndReinstall(int signal) {
    std::signal(signal, noteAndReinstall);
    if (!Kelpkit::noteSignal(signal)) {
        Kelpkit::forceEnd();
    }
}
}

namespace Kelpkit {

void onEndingSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGBREAK}) {
        const auto before = std::signal(signal, noteAndReinstall);
        if (before != SIG_DFL) {
            std::signal(signal, before);
        }
    }
}

bool isLostReader(int /*signal*/) {
    return false;
}

void endBySignal(int signal) {
    // A signal runs no functions registered with atexit().
    restoreConsole();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    std::_Exit(EXIT_FAILURE);
}

}  // namespace Kelpkit
