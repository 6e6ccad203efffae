#include "platform/standard_streams.h"

#include <iostream>

namespace {

// Taken when the library is loaded, before a tool can replace the stream's buffer.
const std::streambuf* const systemsBuffer = std::cin.rdbuf();

}  // namespace

std::ostream& Kelp::standardOutput() {
    return std::cout;
}

std::istream& Kelp::standardInput() {
    return std::cin;
}

Kelp::InputSource Kelp::standardInputSource() {
    // libc++ always reads through the C library.
    return std::cin.good() && std::cin.rdbuf() == systemsBuffer ? InputSource::cLibrary : InputSource::stream;
}
