#ifndef KELPKIT_STANDARD_OUTPUT_H
#define KELPKIT_STANDARD_OUTPUT_H

#include <ostream>

namespace Kelpkit {

/// Returns std::cout, initialised by the first call. No other file includes <iostream>: before libstdc++ 13 that alone initialises
/// the streams at the start of a tool, even if it never uses them, and makes the start a tenth longer.
std::ostream& standardOutput();

/// Passes what std::cout holds back to the system or the C library. Returns whether that took everything.
bool flushStandardOutput();

}  // namespace Kelpkit

#endif
