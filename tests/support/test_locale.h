#ifndef KELPLIB_TESTS_TEST_LOCALE_H
#define KELPLIB_TESTS_TEST_LOCALE_H

#include <cstdlib>

/// The name of a C locale with a decimal comma, where the byte 0xC4 is a capital letter and 0xE4 its small one. The build
/// makes one where it can, and tells its name to tests that run through ctest. Null otherwise.
inline const char* testLocaleName() {
    return std::getenv("KELPLIB_TEST_LOCALE");
}

#endif
