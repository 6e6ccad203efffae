#ifndef KELPLIB_TESTS_PLAIN_LOWER_H
#define KELPLIB_TESTS_PLAIN_LOWER_H

#include <string>

/// Returns the text with its ASCII letters in lower case.
inline std::string plainLower(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') {
            c = "abcdefghijklmnopqrstuvwxyz"[c - 'A'];
        }
    }
    return text;
}

#endif
