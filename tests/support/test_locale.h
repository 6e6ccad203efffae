#ifndef KELPLIB_TESTS_TEST_LOCALE_H
#define KELPLIB_TESTS_TEST_LOCALE_H

#include <cstdlib>

/// Returns the name of a C locale with a decimal comma, in which the byte 0xE4 is the lower case of 0xC4. ctest passes it to
/// the tests in KELPLIB_TEST_LOCALE. Returns null if that is not set.
inline const char* testLocaleName() {
    return std::getenv("KELPLIB_TEST_LOCALE");
}

#endif
