#ifndef KELPLIB_PLATFORM_WIDE_PRODUCT_H
#define KELPLIB_PLATFORM_WIDE_PRODUCT_H

#include <cstdint>

namespace Kelp {

/// A product of two numbers of 64 bits.
struct WideProduct {
    std::uint64_t high;
    std::uint64_t low;
};

/// Multiplies the halves of the factors, for processors without a product of 128 bits.
constexpr WideProduct productOfHalves(std::uint64_t left, std::uint64_t right) {
    constexpr std::uint64_t half = 0xFFFFFFFFU;
    const std::uint64_t low = (left & half) * (right & half);
    const std::uint64_t first = (left >> 32) * (right & half) + (low >> 32);
    const std::uint64_t second = (left & half) * (right >> 32) + (first & half);
    return {(left >> 32) * (right >> 32) + (first >> 32) + (second >> 32), second << 32 | (low & half)};
}

#ifdef __SIZEOF_INT128__
inline WideProduct wideProduct(std::uint64_t left, std::uint64_t right) {
    __extension__ using Number = unsigned __int128;
    const Number product = static_cast<Number>(left) * right;
    return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
}
#else
inline WideProduct wideProduct(std::uint64_t left, std::uint64_t right) {
    return productOfHalves(left, right);
}
#endif

}  // namespace Kelp

#endif
