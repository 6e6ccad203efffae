#ifndef KELPKIT_INTERRUPTION_H
#define KELPKIT_INTERRUPTION_H

/// \file
/// Signals that ask the process to end, such as that of Ctrl-C. A tool that has something to tidy up first notes them, looks for
/// them from time to time, and ends by the noted signal once its objects are destroyed. run() does the last part.

namespace Kelpkit {

/// Thrown when a signal asks the process to end. Not a std::exception, so that a handler for errors does not catch it.
struct Interruption {
    int signal;  ///< its number, for example SIGINT
};

/// From this call on, signals that ask the process to end are only noted: SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGTERM and SIGXCPU,
/// on Windows SIGINT, SIGTERM and SIGBREAK. A write beyond the limit of file sizes fails instead of ending the process (SIGXFSZ).
/// Signals that are ignored or have a handler of their own keep it. Further calls do nothing. The kit calls this before it creates
/// a file.
///
/// A write that blocks ends within a second after the noted signal. A tool that has not ended after two seconds, for example
/// because it waits for input, or that gets a second signal, is ended by force as soon as no file is being published: its
/// unfinished files are removed, but no object is destroyed and nothing is printed. This needs SIGALRM, whose meaning changes once
/// a signal is noted; if the tool handles or ignores SIGALRM, and on Windows, only a second signal has this effect.
///
/// Call this before starting threads. One copy of the kit in a process can note signals.
void noteInterruptions();

/// Throws an Interruption if a signal was noted. A loop that runs for long and neither writes to a NewFile nor advances a Progress
/// calls this, so that the tool ends in order. May be called from any thread; costs a load and a comparison.
void checkInterruption();

/// Ends the process as the signal would have, so that its caller sees the same. Does not return, and destroys nothing: call it
/// after the exception has left the work of the tool.
[[noreturn]] void endBy(const Interruption& interruption);

}  // namespace Kelpkit

#endif
