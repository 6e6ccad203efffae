#ifndef KELPLIB_TESTS_FAKE_PLATFORM_H
#define KELPLIB_TESTS_FAKE_PLATFORM_H

#include <functional>
#include <string>
#include <vector>

/// The platform of the unit tests. Time moves only when a test says so or the library sleeps; nothing waits.
namespace fake_platform {

struct State {
    double seconds = 1000.0;
    std::vector<unsigned int> sleepsMilliseconds;  ///< every sleep so far
    std::vector<unsigned int> rewoundLines;        ///< every move of the cursor so far
    int rewindResult = 1;
    std::string directory = "/home/u";
    std::function<void(unsigned int)> onSleep;   ///< called with the milliseconds of each sleep
    std::function<void(unsigned int)> onRewind;  ///< called with the lines of each move
};

State& state();

/// Back to the values above.
void reset();

/// What the threads that are started from now on do at their end; a reset leaves it.
std::function<void()>& onThreadEnd();

/// What the threads of the library do before they read standard input, given whether they read it through the C library.
/// A reset leaves it.
std::function<void(bool)>& onRead();

}  // namespace fake_platform

#endif
