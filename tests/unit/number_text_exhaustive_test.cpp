#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bit_pattern.h"
#include "number_text_model.h"
#include "number_text_of.h"

/// Number texts over the whole range of a double, compared with both notations made in the plainest way.
namespace {

using number_text_model::expectedText;
using number_text_model::read;

void expectExact(double number) {
    const std::string text = textOf(number);
    ASSERT_EQ(bitsOf(read(text)), bitsOf(number)) << text;
    ASSERT_EQ(text, expectedText(number));
}

void expectExactBeside(double number) {
    ASSERT_NO_FATAL_FAILURE(expectExact(std::nextafter(number, 0.0)));
    ASSERT_NO_FATAL_FAILURE(expectExact(std::nextafter(number, 1e300)));
}

// Below a power of two the numbers lie closer than above it: fewer digits may read back that are not those to which the
// number itself is rounded (two to the power of -1017 has one less).
TEST(NumberTextExhaustive, IsShortestForPowersOfTwo) {
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        const double number = std::ldexp(1.0, exponent);
        const std::string text = textOf(number);
        ASSERT_EQ(bitsOf(read(text)), bitsOf(number)) << text;
        ASSERT_LE(text.size(), expectedText(number).size()) << text;
        const std::string negativeText = textOf(-number);
        ASSERT_EQ(negativeText, "-" + text);
        ASSERT_NO_FATAL_FAILURE(expectExactBeside(number)) << "two to the power of " << exponent;
    }
}

TEST(NumberTextExhaustive, IsShortestForPowersOfTen) {
    for (int exponent = -323; exponent <= 308; ++exponent) {
        const double number = read("1e" + std::to_string(exponent));
        ASSERT_NO_FATAL_FAILURE(expectExact(number));
        ASSERT_NO_FATAL_FAILURE(expectExact(-number));
        ASSERT_NO_FATAL_FAILURE(expectExactBeside(number));
    }
}

TEST(NumberTextExhaustive, IsShortestForIntegersAndTheirThousandths) {
    for (int i = 0; i <= 20000; ++i) {
        ASSERT_NO_FATAL_FAILURE(expectExact(i));
        ASSERT_NO_FATAL_FAILURE(expectExact(100.0 * i));
        ASSERT_NO_FATAL_FAILURE(expectExact(i / 1000.0));
    }
}

double numberOfBits(std::uint64_t bits) {
    double number = 0.0;
    static_assert(sizeof number == sizeof bits);
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

/// The same random bits in every run (SplitMix64).
class RandomBits {
public:
    std::uint64_t next() {
        state += 0x9E3779B97F4A7C15U;
        std::uint64_t bits = (state ^ (state >> 30U)) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
        return bits ^ (bits >> 31U);
    }

private:
    std::uint64_t state = 0;
};

TEST(NumberTextExhaustive, IsShortestForRandomBits) {
    RandomBits random;
    for (int i = 0; i < 100000; ++i) {
        const double number = numberOfBits(random.next());
        if (std::isfinite(number)) {
            ASSERT_NO_FATAL_FAILURE(expectExact(number));
        }
    }
}

TEST(NumberTextExhaustive, IsShortestForNumbersBelowTheNormalOnes) {
    constexpr std::uint64_t fraction = 0xFFFFFFFFFFFFFU;
    for (std::uint64_t bits = 0; bits <= 2000; ++bits) {
        ASSERT_NO_FATAL_FAILURE(expectExact(numberOfBits(bits)));
        ASSERT_NO_FATAL_FAILURE(expectExact(numberOfBits(fraction - bits)));
    }
    RandomBits random;
    for (int i = 0; i < 10000; ++i) {
        ASSERT_NO_FATAL_FAILURE(expectExact(numberOfBits(random.next() & fraction)));
    }
}

TEST(NumberTextExhaustive, IsShortestForThousandths) {
    for (int thousandths = 1; thousandths <= 20000; ++thousandths) {
        ASSERT_NO_FATAL_FAILURE(expectExact(thousandths / 1000.0));
        ASSERT_NO_FATAL_FAILURE(expectExactBeside(thousandths / 1000.0)) << thousandths;
    }
    for (const double whole : {99999.0, 100000.0, 4294967296.0, 123456789012.0, 999999999999.0, 1000000000000.0}) {
        for (int thousandths = -1000; thousandths <= 1000; ++thousandths) {
            const double number = whole + thousandths / 1000.0;
            ASSERT_NO_FATAL_FAILURE(expectExact(number));
            ASSERT_NO_FATAL_FAILURE(expectExactBeside(number)) << std::to_string(number);
        }
    }
}

TEST(NumberTextExhaustive, IsShortestForWholeNumbers) {
    for (int digits = 1; digits <= 99; ++digits) {
        double number = digits;
        for (int zeros = 0; zeros <= 20; ++zeros) {
            ASSERT_NO_FATAL_FAILURE(expectExact(number));
            ASSERT_NO_FATAL_FAILURE(expectExact(number + 1.0));
            number *= 10.0;
        }
    }
}

}  // namespace
