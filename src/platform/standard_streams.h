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

}  // namespace Kelp

#endif
