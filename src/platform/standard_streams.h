#ifndef KELPLIB_PLATFORM_STANDARD_STREAMS_H
#define KELPLIB_PLATFORM_STANDARD_STREAMS_H

#include <istream>
#include <ostream>

namespace Kelp {

/// std::cout and std::cin, made ready at the first call. No other file includes <iostream>: with some standard libraries
/// that alone makes the streams ready when the library is loaded, which is a third of a small tool's start and lost on a
/// tool that prints nothing through them.
std::ostream& standardOutput();
std::istream& standardInput();

/// Where the next character of std::cin comes from.
enum class InputSource {
    stream,    ///< what std::cin has in its buffer, or a buffer of the tool's own; or nothing, when std::cin has failed
    cLibrary,  ///< the C library's stdin
    system     ///< the system, through the buffer of std::cin, after std::ios::sync_with_stdio(false)
};

InputSource standardInputSource();

}  // namespace Kelp

#endif
