#ifndef COMMON_INTERRUPTION_H
#define COMMON_INTERRUPTION_H

namespace common {

/// Somebody wants the process to end.
struct Interruption {
    int signal;
};

/// From now on the signals that ask a process to end (Ctrl-C is one, a pipe whose reader has gone may be another) are only
/// noted, so that half-written files can be removed first. Those that the process was started to ignore stay ignored.
void noteInterruptions();

/// Calls `note` with each such signal that comes. This is where systems differ.
void onEndingSignals(void (*note)(int));

/// Throws an Interruption if one is noted.
void checkInterruption();

/// Ends the process as the signal would have.
[[noreturn]] void endBy(const Interruption& interruption);

}  // namespace common

#endif
