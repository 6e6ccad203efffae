#include "convert/real_reading.h"

#include <gtest/gtest.h>

#include "number_types.h"

namespace {

using namespace std::string_view_literals;

struct RealCase {
    std::string_view text;
    double expected;
    float expectedFloat;
};

template <std::size_t count>
void expectReals(const RealCase (&cases)[count]) {
    for (const RealCase& each : cases) {
        expectNumbers<double>({{each.text, 99, each.expected}});
        expectNumbers<float>({{each.text, 99, each.expectedFloat}});
    }
}

TEST(RealReading, ReadsDigitsAroundOnePoint) {
    constexpr RealCase cases[] = {
        {"1.", 1.0, 1.0F},
        {".5", 0.5, 0.5F},
        {"+.5", 0.5, 0.5F},
        {"-.5", -0.5, -0.5F},
        {"00.50", 0.5, 0.5F},
        {"4.9", 4.9, 4.9F},
        {" -4.9", -4.9, -4.9F},
        {"2.50000", 2.5, 2.5F},
        {"\t 2.5 \n", 2.5, 2.5F},
        {"12.75abc", 12.75, 12.75F},
        {"1,5", 1.0, 1.0F},
        {"1.2.3", 1.2, 1.2F},
        {"1.5.", 1.5, 1.5F},
        {"1.5-2", 1.5, 1.5F},
        {"1.5+2", 1.5, 1.5F},
        {"1.5 2.5", 1.5, 1.5F},
        {"1.5f", 1.5, 1.5F},
        {"1.5d3", 1.5, 1.5F},
        {"1.5p3", 1.5, 1.5F},
        {"1.\0005"sv, 1.0, 1.0F},
        {"1.5\0009"sv, 1.5, 1.5F},
        {"1. 5", 1.0, 1.0F},
        {"1 .5", 1.0, 1.0F},
        {"123456.75", 123456.75, 123456.75F},
        {"-1234567", -1234567.0, -1234567.0F},
    };
    expectReals(cases);
}

TEST(RealReading, ReadsExponents) {
    constexpr RealCase cases[] = {
        {"1e5", 100000.0, 100000.0F},
        {"1E5", 100000.0, 100000.0F},
        {"1.e5", 100000.0, 100000.0F},
        {".5e1", 5.0, 5.0F},
        {"1e+5", 100000.0, 100000.0F},
        {"-1.5e3", -1500.0, -1500.0F},
        {"1e-5", 0.00001, 0.00001F},
        {"-1e-2", -0.01, -0.01F},
        {"1e05", 100000.0, 100000.0F},
        {"1E+05", 100000.0, 100000.0F},
        {"1e-0005", 0.00001, 0.00001F},
        {"7e0", 7.0, 7.0F},
        {"7e00", 7.0, 7.0F},
        {"7e+0", 7.0, 7.0F},
        {"7e-0", 7.0, 7.0F},
        {"1e5e5", 100000.0, 100000.0F},
        {"1e5.5", 100000.0, 100000.0F},
        {"1e5x", 100000.0, 100000.0F},
        {"1e5+5", 100000.0, 100000.0F},
        {"1e5-", 100000.0, 100000.0F},
        {"1e5 6", 100000.0, 100000.0F},
        {"1e5\0006"sv, 100000.0, 100000.0F},
    };
    expectReals(cases);
}

TEST(RealReading, GivesZeroForAnExponentWithoutDigits) {
    constexpr RealCase cases[] = {
        {"1e", 0.0, 0.0F},        {"1E", 0.0, 0.0F},     {"1e+", 0.0, 0.0F},  {"1e-", 0.0, 0.0F},
        {"-1e", 0.0, 0.0F},       {"-1.5E-", 0.0, 0.0F}, {"1e x", 0.0, 0.0F}, {"1e 5", 0.0, 0.0F},
        {"12.5e+ 5", 0.0, 0.0F},  {"1ee5", 0.0, 0.0F},   {"1e.5", 0.0, 0.0F}, {"1e++5", 0.0, 0.0F},
        {"1e+-5", 0.0, 0.0F},     {"1exp", 0.0, 0.0F},   {"1.e", 0.0, 0.0F},  {".5e", 0.0, 0.0F},
        {"1e\0005"sv, 0.0, 0.0F}, {"-.", 0.0, 0.0F},     {"-", 0.0, 0.0F},    {"-x", 0.0, 0.0F},
    };
    expectReals(cases);
}

TEST(RealReading, KeepsTheSignOfZero) {
    constexpr RealCase cases[] = {
        {"-0", -0.0, -0.0F},   {"-0.0", -0.0, -0.0F},    {"-.0", -0.0, -0.0F}, {"-0x1p3", -0.0, -0.0F},
        {"-0,5", -0.0, -0.0F}, {"-0e-5", -0.0, -0.0F},   {"+0.0", 0.0, 0.0F},  {"0e5", 0.0, 0.0F},
        {"0x1p3", 0.0, 0.0F},  {"0x.8", 0.0, 0.0F},      {"0.x", 0.0, 0.0F},   {"-inf", 0.0, 0.0F},
        {"-nan", 0.0, 0.0F},   {"-infinity", 0.0, 0.0F},
    };
    expectReals(cases);
}

constexpr double largest = 0x1.fffffffffffffp+1023;
constexpr float largestFloat = 0x1.fffffep+127F;

TEST(RealReading, ClampsExponentsOfAnySize) {
    constexpr RealCase cases[] = {
        {"1e400", largest, largestFloat},
        {"-1e400", -largest, -largestFloat},
        {"1e99999999999999999999", largest, largestFloat},
        {"-1e99999999999999999999", -largest, -largestFloat},
        {"1e2147483647", largest, largestFloat},
        {"1e2147483648", largest, largestFloat},
        {"1e4294967296", largest, largestFloat},
        {"1e9223372036854775808", largest, largestFloat},
        {"1e18446744073709551616", largest, largestFloat},
        {"1e18446744073709551621", largest, largestFloat},
        {"1e400abc", largest, largestFloat},
        {"1e-400", 0.0, 0.0F},
        {"-1e-400", -0.0, -0.0F},
        {"1e-99999999999999999999", 0.0, 0.0F},
        {"-1e-99999999999999999999", -0.0, -0.0F},
        {"1e-2147483648", 0.0, 0.0F},
        {"1e-2147483649", 0.0, 0.0F},
        {"1e-4294967296", 0.0, 0.0F},
        {"1e-18446744073709551616", 0.0, 0.0F},
        {"0e99999999999999999999", 0.0, 0.0F},
        {"-0.000e99999999999999999999", -0.0, -0.0F},
        {"1e300", 1e300, largestFloat},
        {"-1e300", -1e300, -largestFloat},
        {"1e-300", 1e-300, 0.0F},
        {"-1e-300", -1e-300, -0.0F},
    };
    expectReals(cases);
}

TEST(RealReading, BalancesLongDigitsWithLongExponents) {
    const std::string zeros(100000, '0');
    const std::string point = "0." + zeros;
    expectReals({
        {"1" + zeros, largest, largestFloat},
        {"-1" + zeros, -largest, -largestFloat},
        {"1" + zeros + "abc", largest, largestFloat},
        {"-1" + zeros + ".5x", -largest, -largestFloat},
        {point + "7", 0.0, 0.0F},
        {"-" + point + "7", -0.0, -0.0F},
        {"7" + zeros + "e-100000", 7.0, 7.0F},
        {point + "7e100001", 7.0, 7.0F},
        {"-" + point + "7e100002", -70.0, -70.0F},
        {zeros + ".5" + zeros, 0.5, 0.5F},
        {"0." + std::string(100000, '3'), 0x1.5555555555555p-2, 0x1.555556p-2F},
        {std::string(100000, '9') + "e-99999", 10.0, 10.0F},
    });
}

}  // namespace
