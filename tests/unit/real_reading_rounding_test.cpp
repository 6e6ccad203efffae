#include <gtest/gtest.h>

#include <cfenv>

#include "convert/real_reading.h"
#include "number_types.h"

namespace {

struct RoundingCase {
    std::string_view text;
    std::uint64_t bits;
};

template <class T, std::size_t count>
void expectBits(const RoundingCase (&cases)[count]) {
    for (const RoundingCase& each : cases) {
        EXPECT_EQ(bitsOf(readOver<T>(99, each.text)), each.bits)
            << shown(each.text) << std::hex << " is 0x" << each.bits;
    }
}

TEST(RealRounding, DoublesNextToPowersOfTwo) {
    constexpr RoundingCase cases[] = {
        {"9007199254740991", 0x433FFFFFFFFFFFFF},
        {"9007199254740992", 0x4340000000000000},
        {"9007199254740993", 0x4340000000000000},
        {"9007199254740993.0000000000000000000000000000001", 0x4340000000000001},
        {"9007199254740994", 0x4340000000000001},
        {"9007199254740994.9999999999999999999999999999999", 0x4340000000000001},
        {"9007199254740995", 0x4340000000000002},
        {"4503599627370495.5", 0x432FFFFFFFFFFFFF},
        {"4503599627370496.5", 0x4330000000000000},
        {"4503599627370497.5", 0x4330000000000002},
        {"9223372036854775295", 0x43DFFFFFFFFFFFFF},
        {"9223372036854775296", 0x43E0000000000000},
        {"18446744073709550591", 0x43EFFFFFFFFFFFFF},
        {"18446744073709550592", 0x43F0000000000000},
        {"18446744073709551615", 0x43F0000000000000},
        {"0.49999999999999994", 0x3FDFFFFFFFFFFFFF},
        {"0.49999999999999997", 0x3FDFFFFFFFFFFFFF},
        {"0.49999999999999998", 0x3FE0000000000000},
        {"0.99999999999999994", 0x3FEFFFFFFFFFFFFF},
        {"0.99999999999999995", 0x3FF0000000000000},
        {"1.0000000000000001", 0x3FF0000000000000},
        {"1.0000000000000002", 0x3FF0000000000001},
        {"1.9999999999999998", 0x3FFFFFFFFFFFFFFF},
        {"1.9999999999999999", 0x4000000000000000},
        {"3.9999999999999997", 0x400FFFFFFFFFFFFF},
        {"3.9999999999999998", 0x4010000000000000},
        {"1.1102230246251564e-16", 0x3C9FFFFFFFFFFFFF},
        {"1.1102230246251565e-16", 0x3CA0000000000000},
        {"6.1035156249999993e-05", 0x3F0FFFFFFFFFFFFF},
        {"8.988465674311579e307", 0x7FDFFFFFFFFFFFFF},
        {"8.9884656743115795e307", 0x7FE0000000000000},
        {"1.491668146240041e-154", 0x1FFFFFFFFFFFFFFE},
        {"1.4916681462400413e-154", 0x2000000000000000},
    };
    expectBits<double>(cases);
}

TEST(RealRounding, DoublesThatAreHardToRound) {
    constexpr RoundingCase cases[] = {
        {"0.1", 0x3FB999999999999A},
        {"0.3", 0x3FD3333333333333},
        {"-123456789012345678", 0xC37B69B4BA630F35},
        {"1.2345678901234568e20", 0x441AC53A7E04BCDA},
        {"3.14159265358979323846264338327950288", 0x400921FB54442D18},
        {"1e22", 0x4480F0CF064DD592},
        {"1e23", 0x44B52D02C7E14AF6},
        {"6929495644600919.5", 0x43389E56EE5E7A58},
        {"62.5364939768271845828", 0x404F44ABD5AA7CA4},
        {"8.10109172351e-10", 0x3E0BD5CBAEF0FD0C},
        {"9007199254740993e-10", 0x412B7CDFD9D7BDBC},
        {"1.424047269444608806127245604493291532849e-306", 0x006FFFFFFFFFFFFF},
        {"1.194577431684120098794946149581726129879e-299", 0x01DFFFFFFFFFFFFF},
    };
    expectBits<double>(cases);
}

TEST(RealRounding, DoublesAtTheEndsOfTheirRange) {
    constexpr RoundingCase cases[] = {
        {"1.7976931348623156e308", 0x7FEFFFFFFFFFFFFE},
        {"1.7976931348623157e308", 0x7FEFFFFFFFFFFFFF},
        {"1.79769313486231580793e308", 0x7FEFFFFFFFFFFFFF},
        {"1.79769313486231580794e308", 0x7FEFFFFFFFFFFFFF},
        {"1.7976931348623159e308", 0x7FEFFFFFFFFFFFFF},
        {"-1.7976931348623159e308", 0xFFEFFFFFFFFFFFFF},
        {"1e308", 0x7FE1CCF385EBC8A0},
        {"1e309", 0x7FEFFFFFFFFFFFFF},
        {"2.2250738585072014e-308", 0x0010000000000000},
        {"2.2250738585072012e-308", 0x0010000000000000},
        {"2.2250738585072011e-308", 0x000FFFFFFFFFFFFF},
        {"2.2250738585072004e-308", 0x000FFFFFFFFFFFFE},
        {"7.4109846876186982e-324", 0x0000000000000002},
        {"7.4109846876186981e-324", 0x0000000000000001},
        {"4.9406564584124654e-324", 0x0000000000000001},
        {"2.47032822920623272089e-324", 0x0000000000000001},
        {"2.47032822920623272088e-324", 0x0000000000000000},
        {"-2.47032822920623272089e-324", 0x8000000000000001},
        {"-2.47032822920623272088e-324", 0x8000000000000000},
    };
    expectBits<double>(cases);
}

TEST(RealRounding, FloatsAtTheEndsOfTheirRange) {
    constexpr RoundingCase cases[] = {
        {"3.4028232635611926e38", 0x7F7FFFFE},
        {"3.4028234663852886e38", 0x7F7FFFFF},
        {"340282356779733661637539395458142568447", 0x7F7FFFFF},
        {"340282356779733661637539395458142568448", 0x7F7FFFFF},
        {"3.4028236e38", 0x7F7FFFFF},
        {"-3.4028236e38", 0xFF7FFFFF},
        {"1e38", 0x7E967699},
        {"1e39", 0x7F7FFFFF},
        {"1.1754943508222875e-38", 0x00800000},
        {"1.1754942807573643e-38", 0x00800000},
        {"1.1754942807573642e-38", 0x007FFFFF},
        {"2.1019476964872257e-45", 0x00000002},
        {"1.4012984643248171e-45", 0x00000001},
        {"7.006492321624086e-46", 0x00000001},
        {"7.006492321624085e-46", 0x00000000},
        {"-7.006492321624086e-46", 0x80000001},
        {"-7.006492321624085e-46", 0x80000000},
    };
    expectBits<float>(cases);
}

// Each text lies next to the middle between two floats. Read as a double first it would land on the middle itself, and
// then go to the even neighbour: those marked would end one bit off.
TEST(RealRounding, FloatsNextToMidpoints) {
    constexpr RoundingCase cases[] = {
        {"1.000000059604644775390625", 0x3F800000},
        {"1.000000059604644775390625000000001", 0x3F800001},  // not 0x3F800000
        {"1.000000059604644775390624999999", 0x3F800000},
        {"1.000000178813934326171875", 0x3F800002},
        {"1.000000178813934326171875000000001", 0x3F800002},
        {"1.000000178813934326171874999999", 0x3F800001},  // not 0x3F800002
        {"16777217", 0x4B800000},
        {"16777217.0000000001", 0x4B800001},   // not 0x4B800000
        {"-16777217.0000000001", 0xCB800001},  // not 0xCB800000
        {"16777218.9999999999", 0x4B800001},   // not 0x4B800002
        {"16777219", 0x4B800002},
        {"8388608.500000001", 0x4B000001},
        {"8388609.499999999999999", 0x4B000001},                 // not 0x4B000002
        {"2.0000001192092896", 0x40000001},                      // not 0x40000000
        {"18014399583223809", 0x5A800001},                       // not 0x5A800000
        {"9007199791611905", 0x5A000001},                        // not 0x5A000000
        {"0.500000029802322387695312500000001", 0x3F000001},     // not 0x3F000000
        {"7.00649232162408535461864791644959e-46", 0x00000001},  // not 0x00000000
        {"7.00649232162408535461864791644958e-46", 0x00000000},
        {"2.10194769648722560638559437493487e-45", 0x00000001},  // not 0x00000002
        {"2.10194769648722560638559437493488e-45", 0x00000002},
    };
    expectBits<float>(cases);
}

TEST(RealRounding, LooksAtTheLastOfManyDigits) {
    const std::string zeros(100000, '0');
    const std::string doubleMidpoint = "1.00000000000000011102230246251565404236316680908203125";
    const std::string floatMidpoint = "1.000000059604644775390625";
    expectBits<double>(
        {{doubleMidpoint + zeros, 0x3FF0000000000000}, {doubleMidpoint + zeros + "1", 0x3FF0000000000001}});
    expectBits<float>({{floatMidpoint + zeros, 0x3F800000}, {floatMidpoint + zeros + "1", 0x3F800001}});
}

TEST(RealRounding, WhatIsTooSmallIsNoLimitInAnyDirection) {
    for (const int mode : {FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO, FE_TONEAREST}) {
        std::fesetround(mode);
        const auto small = readOver<double>(99, "1e-400");
        const auto smallSingle = readOver<float>(99, "1e-400");
        std::fesetround(FE_TONEAREST);
        EXPECT_LT(small, 1e-323) << mode;
        EXPECT_LT(smallSingle, 1e-44F) << mode;
    }
}

}  // namespace
