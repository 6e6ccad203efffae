#ifndef KELPKIT_CONSOLE_H
#define KELPKIT_CONSOLE_H

namespace Kelpkit {

/// Sets the console to UTF-8, the encoding of file names and messages, until restoreConsole() or the end of the process, also by
/// Ctrl-C. Only a Windows console needs this. Further calls do nothing.
void useUtf8Console();

/// Gives the console the encoding that it had before useUtf8Console(), if that was called.
void restoreConsole();

/// Returns whether standard output is open.
bool isStandardOutputOpen();

}  // namespace Kelpkit

#endif
