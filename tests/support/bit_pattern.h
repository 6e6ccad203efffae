#ifndef KELPLIB_TESTS_BIT_PATTERN_H
#define KELPLIB_TESTS_BIT_PATTERN_H

#include <cstdint>
#include <cstring>
#include <type_traits>

/// Returns the bits of a number, sign-extended for integers: 0 and -0 differ, two equal NaNs do not.
template <class T>
std::uint64_t bitsOf(T value) {
    if constexpr (std::is_floating_point_v<T>) {
        std::conditional_t<sizeof(T) == sizeof(float), std::uint32_t, std::uint64_t> bits = 0;
        static_assert(sizeof bits == sizeof value);
        std::memcpy(&bits, &value, sizeof bits);
        return bits;
    } else {
        return static_cast<std::uint64_t>(value);
    }
}

#endif
