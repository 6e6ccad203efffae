#ifndef KELPLIB_TESTS_ALLOCATION_COUNT_H
#define KELPLIB_TESTS_ALLOCATION_COUNT_H

#include <cstddef>

/// How often the program has called operator new so far. A program that links allocation_count.cpp has an operator new of
/// its own that counts.
std::size_t allocationCount();

#endif
