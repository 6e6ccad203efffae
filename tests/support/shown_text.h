#ifndef KELPLIB_TESTS_SHOWN_TEXT_H
#define KELPLIB_TESTS_SHOWN_TEXT_H

#include <gtest/gtest.h>

#include <string>
#include <string_view>

/// The text as a message shows it: quoted, control characters visible, only the beginning of a long one.
inline std::string shown(std::string_view text) {
    constexpr std::size_t longest = 100;
    const std::string beginning = ::testing::PrintToString(std::string(text.substr(0, longest)));
    return text.size() <= longest ? beginning : beginning + "... of " + std::to_string(text.size()) + " characters";
}

#endif
