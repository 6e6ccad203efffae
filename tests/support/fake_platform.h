#ifndef KELPLIB_TESTS_FAKE_PLATFORM_H
#define KELPLIB_TESTS_FAKE_PLATFORM_H

#include <functional>
#include <string>
#include <vector>

/// The platform of the unit tests. Time passes only when a test sets it or the library sleeps; nothing waits.
namespace fake_platform {

struct State {
    double seconds = 1000.0;
    std::vector<unsigned int> sleepsMilliseconds;  ///< every sleep so far
    std::vector<unsigned int> rewoundLines;        ///< the lines of every cursor move so far
    int rewindResult = 1;
    std::string directory = "/home/u";
    std::function<void(unsigned int)> onSleep;   ///< called with the milliseconds of each sleep
    std::function<void(unsigned int)> onRewind;  ///< called with the lines of each move
};

State& state();

/// Restores the values above.
void reset();

/// Called at the end of every thread started from now on. reset() keeps it.
std::function<void()>& onThreadEnd();

/// Called before a thread of the library reads standard input; the argument is whether it reads through the C library.
/// reset() keeps it.
std::function<void(bool)>& onRead();

}  // namespace fake_platform

#endif
