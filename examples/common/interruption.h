#ifndef COMMON_INTERRUPTION_H
#define COMMON_INTERRUPTION_H

namespace common {

/// A signal asks the process to end.
struct Interruption {
    int signal;
};

/// From this call on, signals that ask the process to end (such as that of Ctrl-C, or SIGPIPE) are only noted, so that the tool
/// can remove unfinished files first. Signals that the process was started to ignore stay ignored.
void noteInterruptions();

/// Has `note` called for each such signal. Each system has its own implementation.
void onEndingSignals(void (*note)(int));

/// Throws an Interruption if a signal was noted.
void checkInterruption();

/// Ends the process as the signal would have.
[[noreturn]] void endBy(const Interruption& interruption);

}  // namespace common

#endif
