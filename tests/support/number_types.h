#ifndef KELPLIB_TESTS_NUMBER_TYPES_H
#define KELPLIB_TESTS_NUMBER_TYPES_H

#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "bit_pattern.h"
#include "shown_text.h"

/// The six types that a number can be read into. Typed tests run once for each.
using NumberTypes = ::testing::Types<int, unsigned short, unsigned int, unsigned long long, double, float>;

struct NumberTypeNames {
    template <class T>
    static std::string GetName(int /*index*/) {
        if constexpr (std::is_floating_point_v<T>) {
            return std::is_same_v<T, float> ? "Float" : "Double";
        } else if constexpr (std::is_signed_v<T>) {
            return "Int";
        } else {
            return "Unsigned" + std::to_string(8 * sizeof(T));
        }
    }
};

/// Returns what a target that holds `old` holds after `text` is read into it.
template <class T>
T readOver(T old, std::string_view text) {
    Kelp::stringToValue(old, std::string(text));
    return old;
}

template <class T>
struct NumberCase {
    std::string_view text;
    T old;
    T expected;
};

/// Reads each case's text over its old value and compares the bits with those of the expected value.
template <class T, std::size_t count>
void expectNumbers(const NumberCase<T> (&cases)[count]) {
    for (const NumberCase<T>& each : cases) {
        const T actual = readOver(each.old, each.text);
        EXPECT_EQ(bitsOf(actual), bitsOf(each.expected))
            << shown(each.text) << " over " << each.old << " gives " << actual << " instead of " << each.expected;
    }
}

#endif
