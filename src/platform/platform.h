#ifndef KELPLIB_PLATFORM_PLATFORM_H
#define KELPLIB_PLATFORM_PLATFORM_H

#include <functional>
#include <string>
#include <thread>

/// Everything that differs between the systems. The build links the system's implementation into the library and a fake one,
/// whose clock, console and directory the tests control, into the unit tests.
namespace Kelp::platform {

/// Returns the seconds of a monotonic clock with an arbitrary start. Never fails.
double monotonicSeconds();

/// Blocks the calling thread for at least `milliseconds`, even if signals arrive.
void sleepMilliseconds(unsigned int milliseconds);

/// Flushes stdout, then moves the console's cursor up `lines` rows and to column 0. Does not touch std::cout, whose buffer may
/// be missing, throw, or be in use by another thread.
/// \returns -1 if standard output is closed; 0 if it is not a console, with nothing written, or if the console refuses;
///          otherwise another value
int rewindCursor(unsigned int lines);

/// Waits until standard input is ready: it has input, has ended, or cannot be read. Then calls `read`. Holds no lock of the C
/// library while it waits, so that the process can exit, fork and flush. Keeps waiting while the process is in the background
/// of its terminal, because keys typed there are for the foreground process.
/// \param throughCLibrary  whether `read` uses stdin. If so, `read` is also called when stdin has buffered characters, and
///                         stdin is locked during the call
void whenInputIsReady(bool throughCLibrary, const std::function<void()>& read);

/// Starts a thread with all signals blocked: they are for the tool's own threads. Keeps the library in memory until the process
/// ends, even if the program unloads it, because the thread may outlive the call.
/// \throws std::system_error if no thread can be started
/// \throws std::bad_alloc
std::thread startThread(std::function<void()> run);

/// Registers `handler` to be called in every child of fork(), which has none of the threads of its parent.
void callInForkedChild(void (*handler)());

/// Whether printf writes the decimal point ".". A program may have set a C locale with another one.
bool printsDecimalPoint();

/// Returns the current directory; empty if the system's call fails with a buffer of 260 bytes.
std::string currentDirectory();

}  // namespace Kelp::platform

#endif
