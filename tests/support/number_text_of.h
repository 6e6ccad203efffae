#ifndef KELPLIB_TESTS_NUMBER_TEXT_OF_H
#define KELPLIB_TESTS_NUMBER_TEXT_OF_H

#include <string>

#include "convert/number_text.h"

/// The text of a number, as one string. All of the buffer when the buffer was written behind the number's end.
inline std::string textOf(double number) {
    std::string buffer(Kelp::longestNumberText + 8, '~');
    const auto length = static_cast<std::size_t>(Kelp::writeNumberText(buffer.data(), number) - buffer.data());
    const bool kept = buffer.find_first_not_of('~', Kelp::longestNumberText) == std::string::npos;
    return kept ? buffer.substr(0, length) : buffer;
}

#endif
