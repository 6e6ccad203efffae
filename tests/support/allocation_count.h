#ifndef KELPLIB_TESTS_ALLOCATION_COUNT_H
#define KELPLIB_TESTS_ALLOCATION_COUNT_H

#include <cstddef>

/// The number of calls of operator new so far. allocation_count.cpp replaces operator new by one that counts.
std::size_t allocationCount();

#endif
