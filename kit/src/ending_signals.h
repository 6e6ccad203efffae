#ifndef KELPKIT_ENDING_SIGNALS_H
#define KELPKIT_ENDING_SIGNALS_H

namespace Kelpkit {

/// \file
/// Signals that ask the process to end. Each system has its own implementation.

/// Has noteSignal() called for each signal that asks the process to end and still has its default action, and forceEnd() for each
/// but SIGPIPE that follows. After the first one, forceEnd() is called after two seconds, and every second from then on, unless the
/// tool uses SIGALRM; not on Windows. To be called once.
void onEndingSignals();

/// Sets what forceEnd() calls first. It returns whether the process may be ended. Only a tool that writes files contains the code
/// that removes them.
void beforeForcedEnd(bool (*preparation)());

/// Whether the signal only says that the output has lost its reader.
bool isLostReader(int signal);

/// Ends the process by the signal, also from a handler.
[[noreturn]] void endBySignal(int signal);

/// \name Called by the handlers
/// @{

/// Notes the first signal.
/// \returns whether it was the first one
bool noteSignal(int signal);
/// Removes unfinished files and ends the process by the noted signal, unless files are being published.
void forceEnd();
/// @}

}  // namespace Kelpkit

#endif
