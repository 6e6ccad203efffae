#ifndef KELPLIB_TESTS_PLAIN_LOWER_H
#define KELPLIB_TESTS_PLAIN_LOWER_H

#include <string>

/// A copy with the capital letters of ASCII replaced by the small ones.
inline std::string plainLower(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') {
            c = "abcdefghijklmnopqrstuvwxyz"[c - 'A'];
        }
    }
    return text;
}

#endif
