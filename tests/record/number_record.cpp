// Compares the texts of numbers with those of std::to_chars: number_record DIVISOR. With a divisor of 1 it takes all floats and
// 10^9 random doubles, with another one that fraction of them; the limits of every binary exponent in any case.
//
// Only numbers below 2^53 are compared, because above it the standard libraries differ.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "bit_pattern.h"
#include "convert/number_text.h"
#include "number_text_model.h"
#include "random_bits.h"

namespace {

constexpr double limit = 0x1p53;

template <class Number, class Bits>
Number numberOf(Bits bits) {
    static_assert(sizeof(Number) == sizeof(Bits));
    Number number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

/// Compares texts and counts them.
struct Comparison {
    /// \param readBack  whether the text is read, too
    void compare(double number, bool readBack = false) {
        if (!(std::fabs(number) < limit)) {
            return;
        }
        ++compared;
        std::array<char, Kelp::numberTextRoom> own;
        std::array<char, Kelp::numberTextRoom> standard;
        char* const end = Kelp::writeNumberText(own.data(), number);
        char* const standardEnd = std::to_chars(standard.data(), standard.data() + standard.size(), number).ptr;
        const std::string_view text(own.data(), static_cast<std::size_t>(end - own.data()));
        const std::string_view expected(standard.data(), static_cast<std::size_t>(standardEnd - standard.data()));
        if (text != expected || (readBack && bitsOf(number_text_model::read(std::string(text))) != bitsOf(number))) {
            ++different;
            std::printf("%a: \"%s\" instead of \"%s\"\n", number, std::string(text).c_str(),
                        std::string(expected).c_str());
        }
    }

    std::uint64_t compared = 0;
    std::uint64_t different = 0;
};

/// One of several threads, each of which takes every so many numbers.
struct Share {
    std::uint64_t index;
    std::uint64_t count;
    std::uint64_t divisor;
};

void compareFloats(Comparison& comparison, const Share& share) {
    constexpr std::uint64_t floats = std::uint64_t{1} << 32;
    for (std::uint64_t bits = share.index * share.divisor; bits < floats; bits += share.count * share.divisor) {
        comparison.compare(static_cast<double>(numberOf<float>(static_cast<std::uint32_t>(bits))));
    }
}

/// Random doubles around the range of the library's own digits. A quarter has few digits in binary, a quarter in decimal.
void compareDoubles(Comparison& comparison, const Share& share) {
    constexpr std::uint64_t doubles = 1000000000;
    RandomBits random{share.index};
    for (std::uint64_t i = share.index * share.divisor; i < doubles; i += share.count * share.divisor) {
        const std::uint64_t bits = random.next();
        const std::uint64_t choice = random.next();
        const std::uint64_t exponent = 1023 - 66 + choice % 119;
        std::uint64_t fraction = bits >> 12;
        if ((choice >> 32) % 4 == 0) {
            fraction &= ~std::uint64_t{0} << (choice >> 40) % 52;
        }
        const bool isDecimal = (choice >> 32) % 4 == 1;
        comparison.compare(isDecimal ? static_cast<double>(bits >> 24) / std::pow(10.0, static_cast<int>(choice % 30))
                                     : numberOf<double>(exponent << 52 | fraction));
    }
}

/// The numbers at both ends of every binary exponent, and their neighbours.
void compareLimits(Comparison& comparison) {
    for (int exponent = -1074; exponent <= 53; ++exponent) {
        for (const double sign : {1.0, -1.0}) {
            const std::uint64_t bits = bitsOf(sign * std::ldexp(1.0, exponent));
            for (std::uint64_t step = 0; step <= 20; ++step) {
                comparison.compare(numberOf<double>(bits + step), true);
                comparison.compare(numberOf<double>(bits - step), true);
            }
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::uint64_t divisor = argc == 2 ? std::strtoull(argv[1], nullptr, 10) : 0;
    if (divisor == 0) {
        std::fputs("usage: number_record DIVISOR\n", stderr);
        return 2;
    }
    const std::uint64_t count = std::max(1U, std::thread::hardware_concurrency());
    std::vector<Comparison> comparisons(count);
    std::vector<std::thread> threads;
    for (std::uint64_t index = 0; index < count; ++index) {
        threads.emplace_back([&comparison = comparisons[index], share = Share{index, count, divisor}] {
            Comparison own;
            compareFloats(own, share);
            compareDoubles(own, share);
            comparison = own;
        });
    }
    Comparison sum;
    compareLimits(sum);
    for (std::uint64_t index = 0; index < count; ++index) {
        threads[index].join();
        sum.compared += comparisons[index].compared;
        sum.different += comparisons[index].different;
    }
    std::printf("%llu texts compared, %llu differ\n", static_cast<unsigned long long>(sum.compared),
                static_cast<unsigned long long>(sum.different));
    return sum.different == 0 ? 0 : 1;
}
