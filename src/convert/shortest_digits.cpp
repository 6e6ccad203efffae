// The shortest digits of a number, found by Schubfach: Raffaello Giulietti, "The Schubfach way to render doubles".
//
// A number v = significand * 2^-shift is read back from every text nearer to it than half a unit, 2^-(shift + 1). The method
// scales v so that a unit becomes 1 to 10. The interval around it then contains at most one multiple of ten; if there is one, it
// has the fewest digits, else the nearest integer does.
//
// In the range of this file the scale is a power of ten from 10^0 to 10^35, which 128 bits hold without its factor of two, so
// every value below is exact. An end of the interval has more factors of two in its denominator than the scale in its
// numerator. It is no integer, so it does not matter whether the interval includes its ends.
#include "convert/shortest_digits.h"

#include <array>

#include "platform/wide_product.h"

namespace Kelp {

namespace {

constexpr int mostShift = 115;
constexpr int mostDecimals = 35;

struct Wide {
    std::uint64_t high;
    std::uint64_t low;
};

constexpr bool operator<(const Wide& left, const Wide& right) {
    return left.high < right.high || (left.high == right.high && left.low < right.low);
}

/// \param bits  1 to 63
constexpr Wide shiftedRight(const Wide& number, int bits) {
    return {number.high >> bits, number.high << (64 - bits) | number.low >> bits};
}

constexpr Wide sumOf(const Wide& left, const Wide& right) {
    const std::uint64_t low = left.low + right.low;
    return {left.high + right.high + (low < left.low ? 1 : 0), low};
}

/// The powers of ten, shifted so that the highest bit is set: 10^n * 2^(127 - floor(log2(10^n))).
constexpr std::array<Wide, mostDecimals + 1> makePowers() {
    std::array<Wide, mostDecimals + 1> powers{};
    Wide power = {std::uint64_t{1} << 63, 0};
    for (Wide& each : powers) {
        each = power;
        // Times 5/8, and doubled if that is less than 2^127.
        power = sumOf(shiftedRight(each, 1), shiftedRight(each, 3));
        power = power.high >> 63 != 0 ? power : sumOf(power, power);
    }
    return powers;
}

constexpr auto powers = makePowers();

/// floor(log2(10^n))
constexpr int binaryExponent(int n) {
    return n * 108853 >> 15;
}

/// The fewest decimals that make a unit of 2^-shift at least 1 when scaled: ceil(log10(2^shift)).
constexpr int decimalsFor(int shift) {
    return shift == 0 ? 0 : (shift * 1233 >> 12) + 1;
}

/// The factor of two that is left of the scale, for powers whose highest bit is bit 127.
constexpr int scaleFor(int shift) {
    return binaryExponent(decimalsFor(shift)) - shift + 1;
}

constexpr bool scalesFit() {
    for (int shift = 0; shift <= mostShift; ++shift) {
        if (scaleFor(shift) < 1 || scaleFor(shift) > 4) {
            return false;
        }
    }
    return decimalsFor(mostShift) == mostDecimals;
}

static_assert(scalesFit());
static_assert(productOfHalves(~std::uint64_t{0}, ~std::uint64_t{0}).high == ~std::uint64_t{1});
static_assert(powers[mostDecimals].low % 16 == 0, "nothing is lost of the digits below");

}  // namespace

ShortestDigits shortestDigits(std::uint64_t significand, int shift) {
    const int decimals = decimalsFor(shift);
    const Wide& power = powers[static_cast<std::size_t>(decimals)];
    // The scaled unit is power * 2^(scale - 128), 1 to 10.
    const int scale = scaleFor(shift);
    const std::uint64_t factor = significand << scale;
    const WideProduct high = wideProduct(factor, power.high);
    const WideProduct low = wideProduct(factor, power.low);
    const std::uint64_t middle = high.low + low.high;
    const std::uint64_t whole = high.high + (middle < low.high ? 1 : 0);

    // Four bits of a digit and 124 after the point. The bits that are shifted out are zero.
    const std::uint64_t tens = whole / 10;
    const std::uint64_t lastDigit = whole - tens * 10;
    const Wide below = {lastDigit << 60 | middle >> 4, middle << 60 | low.low >> 4};
    const Wide half = shiftedRight(power, 5 - scale);
    if (below < half) {
        return {tens * 10, decimals};
    }
    const Wide above = {(std::uint64_t{10} << 60) - below.high - (below.low != 0 ? 1 : 0), 0 - below.low};
    if (above < half) {
        return {tens * 10 + 10, decimals};
    }
    const Wide fraction = {middle, low.low};
    constexpr Wide middleOfDigit = {std::uint64_t{1} << 63, 0};
    const bool roundsUp = middleOfDigit < fraction || (!(fraction < middleOfDigit) && whole % 2 != 0);
    return {whole + (roundsUp ? 1 : 0), decimals};
}

}  // namespace Kelp
