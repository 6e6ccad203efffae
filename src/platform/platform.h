#ifndef KELPLIB_PLATFORM_PLATFORM_H
#define KELPLIB_PLATFORM_PLATFORM_H

#include <functional>
#include <string>
#include <thread>

/// Everything that differs between the systems. The build links one implementation: the system's own into the library, a
/// fake whose clock, console and directory the tests set into the unit tests.
namespace Kelp::platform {

/// Seconds of a monotonic clock with an arbitrary start. Never fails.
double monotonicSeconds();

/// Blocks the calling thread for at least `milliseconds`; goes on for the rest after a signal.
void sleepMilliseconds(unsigned int milliseconds);

/// Flushes the C library's standard output, then moves the console's cursor to column 0 of the row `lines` above its own.
/// Leaves std::cout alone: its buffer may be missing, throw, or be in use by another thread.
/// \returns -1 when standard output is closed, 0 when it is no console (nothing is written then) or the console refuses,
///          otherwise a value other than 0 and -1
int rewindCursor(unsigned int lines);

/// Waits until standard input can be read without waiting, has ended or cannot be read, and then calls `read`. Until then it
/// holds no lock of the C library, so that the rest of the process can exit, fork and flush. In the background of its
/// terminal it goes on waiting: the keys belong to the program in the foreground.
/// \param throughCLibrary  whether `read` uses the C library's stdin. Then it is also called when the C library has characters
///                         in its buffer, and no other thread uses stdin meanwhile
void whenInputIsReady(bool throughCLibrary, const std::function<void()>& read);

/// Starts a thread that handles no signals: those are for the tool's own threads. From then on the library stays in memory,
/// even where it is unloaded: the thread may outlive the call that started it.
/// \throws std::system_error when there can be no further thread, besides std::bad_alloc
std::thread startThread(std::function<void()> run);

/// Has `handler` called in every child of fork(), which has none of the threads that its parent started.
void callInForkedChild(void (*handler)());

/// The current directory as the system gives it; empty when the system's call fails on a buffer of 260 bytes.
std::string currentDirectory();

}  // namespace Kelp::platform

#endif
