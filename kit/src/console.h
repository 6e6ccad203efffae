#ifndef KELPKIT_CONSOLE_H
#define KELPKIT_CONSOLE_H

namespace Kelpkit {

/// Sets the console to UTF-8, the encoding of file names and messages, and has it interpret escape sequences, until
/// restoreConsole() or the end of the process, also by Ctrl-C, but not by a crash or abort(). Only a Windows console needs this.
/// Output into pipes and files, and input from them, leaves the console alone. Further calls do nothing.
///
/// Programs that share a console leave it as it was: each undoes only what it has changed. While they run, the end of the first
/// one also ends the settings of the others.
void useUtf8Console();

/// Undoes what useUtf8Console() has changed, if it was called.
void restoreConsole();

/// Returns whether standard output is open.
bool isStandardOutputOpen();

}  // namespace Kelpkit

#endif
