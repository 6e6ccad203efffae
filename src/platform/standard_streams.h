#ifndef KELPLIB_PLATFORM_STANDARD_STREAMS_H
#define KELPLIB_PLATFORM_STANDARD_STREAMS_H

#include <istream>
#include <ostream>

namespace Kelp {

/// std::cout and std::cin, initialised by the first call. No other file includes <iostream>: before libstdc++ 13 that alone
/// initialises the streams when the library is loaded, a third of the start of a small tool, even if it never uses them.
std::ostream& standardOutput();
std::istream& standardInput();

/// The source of the next character of std::cin.
enum class InputSource {
    stream,    ///< the stream: std::cin has buffered characters, the tool's own buffer, or failed
    cLibrary,  ///< the C library's stdin
    system     ///< the system, through the empty buffer of std::cin, after std::ios::sync_with_stdio(false)
};

InputSource standardInputSource();

}  // namespace Kelp

#endif
