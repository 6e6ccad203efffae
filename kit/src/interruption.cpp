#include <kelpkit/Interruption.h>

#include <atomic>

#include "console.h"
#include "ending_signals.h"

namespace {

std::atomic<int> notedSignal{0};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler sets it");

std::atomic<bool (*)()> prepare{nullptr};

}  // namespace

namespace Kelpkit {

bool noteSignal(int signal) {
    int none = 0;
    return notedSignal.compare_exchange_strong(none, signal);
}

void beforeForcedEnd(bool (*preparation)()) {
    prepare = preparation;
}

void forceEnd() {
    bool (*const preparation)() = prepare;
    if (preparation == nullptr || preparation()) {
        endBySignal(notedSignal);
    }
}

void noteInterruptions() {
    static const bool areNoted = (onEndingSignals(), true);
    static_cast<void>(areNoted);
}

void checkInterruption() {
    if (notedSignal != 0) {
        throw Interruption{notedSignal};
    }
}

void endBy(const Interruption& interruption) {
    endBySignal(interruption.signal);
}

}  // namespace Kelpkit
