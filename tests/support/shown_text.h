#ifndef KELPLIB_TESTS_SHOWN_TEXT_H
#define KELPLIB_TESTS_SHOWN_TEXT_H

#include <gtest/gtest.h>

#include <string>
#include <string_view>

/// Returns a text for a failure message: quoted, with visible control characters, and cut after 100 characters.
inline std::string shown(std::string_view text) {
    constexpr std::size_t longest = 100;
    const std::string beginning = ::testing::PrintToString(std::string(text.substr(0, longest)));
    return text.size() <= longest ? beginning : beginning + "... of " + std::to_string(text.size()) + " characters";
}

#endif
