#include <gtest/gtest.h>
#include <kelpkit/CommandLine.h>

#include <cmath>
#include <limits>
#include <sstream>

#include <kelpkit/Files.h>
#include "locale_facets.h"
#include "scoped_locale.h"

using Kelpkit::Limits;
using Kelpkit::Read;
using Kelpkit::readValue;
using Kelpkit::Type;

namespace {

const char* const notAccepted = "";

template <class T>
std::string shown(const T& value) {
    std::ostringstream stream;
    stream.precision(21);  // the digits of every type here; a long double of 128 bits has more
    stream << +value;
    return stream.str();
}

/// Returns the value, or "not " and what would have been accepted.
template <class T, class... Limit>
std::string answer(const std::string& text, const Limit&... limits) {
    const Read<T> read = readValue(text, Type<T>{}, limits...);
    EXPECT_EQ(read.expectation().empty(), static_cast<bool>(read));
    return read ? shown(read.value()) : "not " + read.expectation();
}

struct Row {
    const char* text;
    const char* value;  ///< notAccepted, or the value
};

/// Checks the limits of a type, one step to each side, and texts that no whole number accepts.
template <class T>
void checkWhole(const std::string& below, const std::string& lowest, const std::string& highest,
                const std::string& above) {
    SCOPED_TRACE(highest);
    const std::string expected = "not a whole number from " + lowest + " to " + highest;
    EXPECT_EQ(answer<T>(lowest), lowest);
    EXPECT_EQ(answer<T>(highest), highest);
    EXPECT_EQ(answer<T>("+" + highest), highest);
    EXPECT_EQ(answer<T>("000000000000000000000000" + highest), highest);
    EXPECT_EQ(answer<T>("0"), "0");
    EXPECT_EQ(answer<T>("+0"), "0");
    for (const std::string& text : {below, above, highest + "0", std::string("99999999999999999999999")}) {
        EXPECT_EQ(answer<T>(text), expected) << text;
    }
    for (const char* text : {"",    " ",  "+",   "-",    "3x",  " 3",  "3 ",  "+-3", "-+3", "--3", "++3",
                             "3.0", "3.", "1e3", "0x1F", "1,0", "nan", "inf", "x",   "\n3", "3\n", "3:4"}) {
        EXPECT_EQ(answer<T>(text), expected) << text;
    }
    EXPECT_EQ(answer<T>(std::string("3\0", 2)), expected);
    EXPECT_EQ(answer<T>("-0"), std::is_signed_v<T> ? "0" : expected);
    EXPECT_EQ(answer<T>("-7"), std::is_signed_v<T> ? "-7" : expected);
}

TEST(Values, WholeNumbersAtTheLimits) {
    checkWhole<signed char>("-129", "-128", "127", "128");
    checkWhole<unsigned char>("-1", "0", "255", "256");
    checkWhole<short>("-32769", "-32768", "32767", "32768");
    checkWhole<unsigned short>("-1", "0", "65535", "65536");
    checkWhole<int>("-2147483649", "-2147483648", "2147483647", "2147483648");
    checkWhole<unsigned int>("-1", "0", "4294967295", "4294967296");
    checkWhole<long long>("-9223372036854775809", "-9223372036854775808", "9223372036854775807", "9223372036854775808");
    checkWhole<unsigned long long>("-1", "0", "18446744073709551615", "18446744073709551616");
    if (sizeof(long) == sizeof(long long)) {
        checkWhole<long>("-9223372036854775809", "-9223372036854775808", "9223372036854775807", "9223372036854775808");
        checkWhole<unsigned long>("-1", "0", "18446744073709551615", "18446744073709551616");
    } else {
        checkWhole<long>("-2147483649", "-2147483648", "2147483647", "2147483648");
        checkWhole<unsigned long>("-1", "0", "4294967295", "4294967296");
    }
    checkWhole<std::size_t>("-1", "0", "18446744073709551615", "18446744073709551616");
}

TEST(Values, WholeNumbersWithinLimits) {
    const Limits<int> limits{-2, 3};
    EXPECT_EQ(answer<int>("-3", limits), "not a whole number from -2 to 3");
    EXPECT_EQ(answer<int>("-2", limits), "-2");
    EXPECT_EQ(answer<int>("3", limits), "3");
    EXPECT_EQ(answer<int>("4", limits), "not a whole number from -2 to 3");
    EXPECT_EQ(answer<int>("0", Kelpkit::atLeast(1)), "not a whole number from 1 to 2147483647");
    EXPECT_EQ(answer<unsigned int>("4", Limits<unsigned int>{{}, 3U}), "not a whole number from 0 to 3");
}

TEST(Values, RealNumbers) {
    const Row rows[] = {{"0", "0"},
                        {"-0", "-0"},
                        {"+1", "1"},
                        {"2.5", "2.5"},
                        {".5", "0.5"},
                        {"5.", "5"},
                        {"-.5e1", "-5"},
                        {"25e-1", "2.5"},
                        {"2E+2", "200"},
                        {"00001", "1"},
                        {"1e-400", "0"},
                        {"-1e-400", "-0"},
                        {"0e999999999999999999999", "0"},
                        {"1.7976931348623157e308", "1.79769313486231570815e+308"},
                        {"-1.7976931348623157e308", "-1.79769313486231570815e+308"},
                        {"", notAccepted},
                        {" 1", notAccepted},
                        {"1 ", notAccepted},
                        {".", notAccepted},
                        {"+", notAccepted},
                        {"-.", notAccepted},
                        {"e5", notAccepted},
                        {".e5", notAccepted},
                        {"1e", notAccepted},
                        {"1e+", notAccepted},
                        {"1e5x", notAccepted},
                        {"1e5.", notAccepted},
                        {"1.2.3", notAccepted},
                        {"--1", notAccepted},
                        {"1,5", notAccepted},
                        {"0x1p3", notAccepted},
                        {"0x10", notAccepted},
                        {"nan", notAccepted},
                        {"NaN", notAccepted},
                        {"inf", notAccepted},
                        {"-infinity", notAccepted},
                        {"1d5", notAccepted},
                        {"1'000", notAccepted},
                        {"x", notAccepted}};
    for (const Row& row : rows) {
        const std::string value = row.value == notAccepted ? "not a number" : row.value;
        EXPECT_EQ(answer<double>(row.text), value) << row.text;
    }
}

TEST(Values, RealNumbersThatDoNotFit) {
    const std::string limits = "not a number from -1.7976931348623157e+308 to 1.7976931348623157e+308";
    for (const char* text : {"1.7976931348623159e308", "1.8e308", "1e400", "-1e400", "1e99999999999999999999"}) {
        EXPECT_EQ(answer<double>(text), limits) << text;
        EXPECT_EQ(answer<long double>(text), limits) << text;
    }
    EXPECT_EQ(answer<float>("3.4028235e38"), "3.40282346638528859812e+38");
    EXPECT_EQ(answer<float>("-3.4028235e38"), "-3.40282346638528859812e+38");
    EXPECT_EQ(answer<float>("3.4028236e38"), "not a number from -3.4028235e+38 to 3.4028235e+38");
    EXPECT_EQ(answer<float>("1e39"), "not a number from -3.4028235e+38 to 3.4028235e+38");
    EXPECT_EQ(answer<float>("x"), "not a number");
    EXPECT_EQ(answer<float>("0.1"), "0.100000001490116119385");
    EXPECT_EQ(answer<long double>("0.5"), "0.5");
}

TEST(Values, RealNumbersWithinLimits) {
    EXPECT_EQ(answer<double>("-1e-9", Kelpkit::between(0.0, 1.0)), "not a number from 0 to 1");
    EXPECT_EQ(answer<double>("1", Kelpkit::between(0.0, 1.0)), "1");
    EXPECT_EQ(answer<double>("1.0000001", Kelpkit::between(0.0, 1.0)), "not a number from 0 to 1");
    EXPECT_EQ(answer<double>("-0.1", Kelpkit::atLeast(0.0)), "not a number of at least 0");
    EXPECT_EQ(answer<double>("0.25", Kelpkit::between(0.1, 0.2)), "not a number from 0.1 to 0.2");
    EXPECT_EQ(answer<float>("0.25", Kelpkit::between(0.1F, 0.2F)), "not a number from 0.1 to 0.2");
    EXPECT_EQ(answer<float>("-0.1", Kelpkit::atLeast(0.0F)), "not a number of at least 0");
    EXPECT_EQ(answer<long double>("0.25", Kelpkit::between(0.1L, 0.2L)), "not a number from 0.1 to 0.2");
    EXPECT_EQ(answer<double>("0.5", Kelpkit::between(0.5, 0.5)), "0.5");
    EXPECT_EQ(answer<double>("1", Limits<double>{{}, std::nan("")}),
              "not a number from -1.7976931348623157e+308 to nan");
    EXPECT_FALSE(readValue("1", Type<double>{}, Kelpkit::atLeast(std::nan(""))));
}

TEST(Values, LimitsOfFloatsAreExact) {
    const auto limit = [](float lowest) { return answer<float>("x", Limits<float>{lowest, 3e38F}); };
    EXPECT_EQ(limit(1234567), "not a number from 1234567 to 3e+38");
    EXPECT_EQ(limit(16777215), "not a number from 16777215 to 3e+38");
    EXPECT_EQ(limit(0.1F), "not a number from 0.1 to 3e+38");
    EXPECT_EQ(limit(0.70000005F), "not a number from 0.70000005 to 3e+38");
    EXPECT_EQ(limit(1.00000012F), "not a number from 1.0000001 to 3e+38");
    EXPECT_EQ(limit(-0.0F), "not a number from -0 to 3e+38");
    EXPECT_EQ(limit(1.17549435e-38F), "not a number from 1.1754944e-38 to 3e+38");
}

TEST(Values, NumbersThatDoNotFitShowBothLimits) {
    const std::string ends = " from 0 to 1.7976931348623157e+308";
    const std::string all = " from -1.7976931348623157e+308 to 1.7976931348623157e+308";
    const auto limits = Kelpkit::atLeast(0.0);
    for (const char* text : {"1e400", "-1e400"}) {
        EXPECT_EQ(answer<double>(text, limits), "not a number" + ends) << text;
        EXPECT_EQ(answer<long double>(text, Kelpkit::atLeast(0.0L)), "not a number" + ends) << text;
        EXPECT_EQ(answer<float>(text, Kelpkit::atLeast(0.0F)), "not a number from 0 to 3.4028235e+38") << text;
    }
    EXPECT_EQ(answer<double>("1e400", Limits<double>{{}, 1.5}), "not a number from -1.7976931348623157e+308 to 1.5");
    EXPECT_EQ(readValue("1e400:2", Type<std::vector<double>>{}).expectation(), "numbers" + all + " separated by \":\"");
    EXPECT_EQ(readValue("2:1e400", Type<std::set<double>>{}, limits).expectation(),
              "numbers" + ends + " separated by \":\"");
    EXPECT_EQ((readValue("2:1e400", Type<std::tuple<double, double>>{}).expectation()),
              "a range FROM:TO of numbers" + all + ", the lower one first");
    EXPECT_EQ((readValue("2:1e39", Type<std::tuple<float, float>>{}, Kelpkit::atLeast(0.0F)).expectation()),
              "a range FROM:TO of numbers from 0 to 3.4028235e+38, the lower one first");
    EXPECT_EQ(readValue("iron:1e400", Type<Kelp::StringDouble>{}).expectation(),
              "a label and a number" + all + ", LABEL:NUMBER");
}

TEST(Values, RealNumbersAreTheLibrarysInEveryLocale) {
    const ScopedGlobalLocale comma(new Punctuation("\3"));
    EXPECT_EQ(readValue("2,5", Type<double>{}).value(), 2.5);
    EXPECT_EQ(readValue("1234", Type<int>{}).value(), 1234);
    EXPECT_EQ(readValue("1234567,5e2", Type<double>{}).value(), 123456750);
    EXPECT_EQ(readValue("2,5:3", Type<std::vector<double>>{}).value(), (std::vector<double>{2.5, 3}));
    for (const char* text : {"2.5", "1.234", "1.234,5", "1,2,3"}) {
        EXPECT_FALSE(readValue(text, Type<double>{})) << text;
    }
    EXPECT_FALSE(readValue("1.234", Type<int>{}));
    EXPECT_EQ(readValue("1,8e308", Type<double>{}).expectation(),
              "a number from -1.7976931348623157e+308 to 1.7976931348623157e+308");
    EXPECT_TRUE(readValue("1,7976931348623157e308", Type<double>{}));
    EXPECT_EQ(readValue("4", Type<double>{}, Kelpkit::between(0.5, 1.5)).expectation(), "a number from 0.5 to 1.5");
    EXPECT_EQ(readValue("4", Type<float>{}, Kelpkit::between(0.5F, 1.5F)).expectation(), "a number from 0.5 to 1.5");
    EXPECT_EQ(readValue("x", Type<int>{}, Kelpkit::between(1, 1'000'000)).expectation(),
              "a whole number from 1 to 1000000");
}

TEST(Values, LimitsHoldForWhatTheLibraryReads) {
    const ScopedGlobalLocale odd(new SeventySeven);
    EXPECT_EQ(readValue("5", Type<int>{}).value(), 77);
    EXPECT_FALSE(readValue("5", Type<int>{}, Kelpkit::between(1, 10)));
}

TEST(Values, Texts) {
    EXPECT_EQ(readValue("", Type<std::string>{}).value(), "");
    EXPECT_EQ(readValue(" a\n", Type<std::string>{}).value(), " a\n");
    EXPECT_EQ(readValue("a", Type<char>{}).value(), 'a');
    EXPECT_EQ(readValue(" ", Type<char>{}).value(), ' ');
    EXPECT_EQ(readValue(std::string(1, '\0'), Type<char>{}).value(), '\0');
    for (const char* text : {"", "ab", "\xE9", "\xC3\xA9"}) {
        EXPECT_EQ(readValue(text, Type<char>{}).expectation(), "a single ASCII character") << text;
    }
    EXPECT_EQ(readValue("a b/c", Type<std::filesystem::path>{}).value(), std::filesystem::path("a b/c"));
    EXPECT_EQ(readValue("", Type<std::filesystem::path>{}).expectation(), "a file name");
    const bool narrow = std::is_same_v<std::filesystem::path::value_type, char>;
    EXPECT_EQ(readValue("\xFF", Type<std::filesystem::path>{}).expectation(), narrow ? "" : "a file name in UTF-8");
}

TEST(Values, YesAndNo) {
    for (const char* text : {"yes", "YES", "on", "On", "true", "tRuE", "1"}) {
        EXPECT_TRUE(readValue(text, Type<bool>{}).value()) << text;
    }
    for (const char* text : {"no", "NO", "off", "oFF", "false", "False", "0"}) {
        EXPECT_FALSE(readValue(text, Type<bool>{}).value()) << text;
    }
    for (const char* text : {"", "y", "n", "2", "00", "yes ", " no", "truee", "tru"}) {
        EXPECT_EQ(readValue(text, Type<bool>{}).expectation(), "one of yes, no, on, off, true, false, 1, 0") << text;
    }
}

TEST(Values, Lists) {
    EXPECT_EQ(readValue("3:1:-3", Type<std::vector<int>>{}).value(), (std::vector<int>{3, 1, -3}));
    EXPECT_EQ(readValue("3", Type<std::vector<int>>{}).value(), (std::vector<int>{3}));
    EXPECT_EQ(readValue("1.5:1", Type<std::vector<double>>{}).value(), (std::vector<double>{1.5, 1}));
    EXPECT_EQ(readValue("3,1,3", Type<std::set<int>>{}).value(), (std::set<int>{1, 3}));
    EXPECT_EQ(readValue("2.5:1:1", Type<std::set<double>>{}).value(), (std::set<double>{1, 2.5}));
    EXPECT_EQ(readValue("b, a,b", Type<std::vector<std::string>>{}).value(),
              (std::vector<std::string>{"b", " a", "b"}));
    EXPECT_EQ(readValue("b, a,b", Type<std::set<std::string>>{}).value(), (std::set<std::string>{" a", "b"}));
}

TEST(Values, ListsThatAreRefused) {
    const std::string whole = "whole numbers from -2147483648 to 2147483647 separated by ";
    for (const char* text : {"", ":", "1:", ":1", "1::2", "1: 2", "1:x", "1,2", "1:2147483648", "1.5"}) {
        EXPECT_EQ(readValue(text, Type<std::vector<int>>{}).expectation(), whole + "\":\"") << text;
    }
    for (const char* text : {"", ",", "1,", ",1", "1,,2", "1, 2", "1,x", "1:2", "1,2147483648"}) {
        EXPECT_EQ(readValue(text, Type<std::set<int>>{}).expectation(), whole + "\",\"") << text;
    }
    for (const char* text : {"", ":", "1:", "1::2", "1:nan", "1,2"}) {
        EXPECT_EQ(readValue(text, Type<std::vector<double>>{}).expectation(), "numbers separated by \":\"") << text;
        EXPECT_EQ(readValue(text, Type<std::set<double>>{}).expectation(), "numbers separated by \":\"") << text;
    }
    for (const char* text : {"", ",", "a,", ",a", "a,,b"}) {
        const std::string texts = "texts separated by \",\", none of them empty";
        EXPECT_EQ(readValue(text, Type<std::vector<std::string>>{}).expectation(), texts) << text;
        EXPECT_EQ(readValue(text, Type<std::set<std::string>>{}).expectation(), texts) << text;
    }
    EXPECT_EQ(readValue("1:0", Type<std::vector<int>>{}, Kelpkit::between(1, 9)).expectation(),
              "whole numbers from 1 to 9 separated by \":\"");
    EXPECT_EQ(readValue("1:-1", Type<std::vector<double>>{}, Kelpkit::atLeast(0.0)).expectation(),
              "numbers of at least 0 separated by \":\"");
}

TEST(Values, RangesAndTriples) {
    EXPECT_EQ((readValue("2:9", Type<std::tuple<unsigned int, unsigned int>>{}).value()), std::make_tuple(2U, 9U));
    EXPECT_EQ((readValue("2:2", Type<std::tuple<unsigned int, unsigned int>>{}).value()), std::make_tuple(2U, 2U));
    EXPECT_EQ((readValue("-1.5:2", Type<std::tuple<double, double>>{}).value()), std::make_tuple(-1.5, 2.0));
    EXPECT_EQ((readValue("0.5:2", Type<std::tuple<float, float>>{}).value()), std::make_tuple(0.5F, 2.0F));
    EXPECT_EQ((readValue("3:1:2", Type<std::tuple<unsigned int, unsigned int, unsigned int>>{}).value()),
              std::make_tuple(3U, 1U, 2U));
    for (const char* text : {"", ":", "1", "1:", ":1", "9:2", "1:2:3", "1::2", "x:2", "1:nan"}) {
        EXPECT_EQ((readValue(text, Type<std::tuple<double, double>>{}).expectation()),
                  "a range FROM:TO of numbers, the lower one first")
            << text;
        EXPECT_EQ((readValue(text, Type<std::tuple<float, float>>{}).expectation()),
                  "a range FROM:TO of numbers, the lower one first")
            << text;
        EXPECT_EQ((readValue(text, Type<std::tuple<unsigned int, unsigned int>>{}).expectation()),
                  "a range FROM:TO of whole numbers from 0 to 4294967295, the lower one first")
            << text;
    }
    for (const char* text : {"", "1", "1:2", "1:2:", "1:2:3:4", "1:-2:3"}) {
        EXPECT_EQ((readValue(text, Type<std::tuple<unsigned int, unsigned int, unsigned int>>{}).expectation()),
                  "three whole numbers from 0 to 4294967295 separated by \":\"")
            << text;
    }
}

TEST(Values, RangesWithinLimits) {
    const auto expected = [](auto type, const auto& limits) { return readValue("x", type, limits).expectation(); };
    const Type<std::tuple<double, double>> doubles;
    const Type<std::tuple<float, float>> floats;
    EXPECT_EQ(expected(doubles, Kelpkit::between(0.0, 1.5)),
              "a range FROM:TO of numbers from 0 to 1.5, the lower one first");
    EXPECT_EQ(expected(doubles, Kelpkit::atLeast(0.5)),
              "a range FROM:TO of numbers of at least 0.5, the lower one first");
    EXPECT_EQ(expected(floats, Kelpkit::between(0.0F, 0.1F)),
              "a range FROM:TO of numbers from 0 to 0.1, the lower one first");
    EXPECT_EQ(expected(floats, Kelpkit::atLeast(0.5F)),
              "a range FROM:TO of numbers of at least 0.5, the lower one first");
}

TEST(Values, LabelsWithNumbers) {
    const Read<Kelp::StringDouble> read = readValue(" iron:7.9", Type<Kelp::StringDouble>{});
    EXPECT_EQ(read.value().label, " iron");
    EXPECT_EQ(read.value().value, 7.9);
    for (const char* text : {"", "iron", ":7.9", "iron:", "iron::7.9", "iron:x", "iron: ", "a:b:1"}) {
        EXPECT_EQ(readValue(text, Type<Kelp::StringDouble>{}).expectation(), "a label and a number, LABEL:NUMBER")
            << text;
    }
}

TEST(Printable, EscapesControlCharactersAndBadBytes) {
    EXPECT_EQ(Kelpkit::printable(""), "");
    EXPECT_EQ(Kelpkit::printable(" a~\\x"), " a~\\x");
    EXPECT_EQ(Kelpkit::printable(std::string("\0\x1F\x7F\n", 4)), "\\x00\\x1f\\x7f\\x0a");
    EXPECT_EQ(Kelpkit::printable("\xC2\x9F\xC2\xA0"), "\\xc2\\x9f\xC2\xA0");
    EXPECT_EQ(Kelpkit::printable("é日\xF0\x9F\x98\x80"), "é日\xF0\x9F\x98\x80");
    EXPECT_EQ(Kelpkit::printable("\xC3"), "\\xc3");
    EXPECT_EQ(Kelpkit::printable("\xE6\x97"), "\\xe6\\x97");
    EXPECT_EQ(Kelpkit::printable("\xC0\xAF\xED\xA0\x80\xF4\x90\x80\x80"),
              "\\xc0\\xaf\\xed\\xa0\\x80\\xf4\\x90\\x80\\x80");
    EXPECT_EQ(Kelpkit::printable("\xE0\x9F\xBF\xE0\xA0\x80\xF0\x8F\xBF\xBF"),
              "\\xe0\\x9f\\xbf\xE0\xA0\x80\\xf0\\x8f\\xbf\\xbf");
    EXPECT_EQ(Kelpkit::printable("\xE6\x97\xC0"), "\\xe6\\x97\\xc0");
}

TEST(Printable, ShowsTheFirstAndTheLastCharacterOfEachForm) {
    for (const char* text : {" ", "~", "\xC2\xA0", "\xDF\xBF", "\xE0\xA0\x80", "\xEC\xBF\xBF", "\xED\x80\x80",
                             "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBD", "\xF0\x90\x80\x80", "\xF1\x80\x80\x80",
                             "\xF3\xBF\xBF\xBF", "\xF4\x80\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(Kelpkit::printable(text), text);
    }
    EXPECT_EQ(Kelpkit::printable("\xF4\x8F\xBF"), "\\xf4\\x8f\\xbf");
    EXPECT_EQ(Kelpkit::printable("\xF4\x8F\xBFx"), "\\xf4\\x8f\\xbfx");
    EXPECT_EQ(Kelpkit::printable("\xF5\x80\x80\x80"), "\\xf5\\x80\\x80\\x80");
}

TEST(FileIdentity, IsEqualInBothNumbers) {
    const Kelpkit::FileIdentity file{1, 2};
    EXPECT_TRUE(file == (Kelpkit::FileIdentity{1, 2}));
    EXPECT_FALSE(file == (Kelpkit::FileIdentity{2, 2}));
    EXPECT_FALSE(file == (Kelpkit::FileIdentity{1, 1}));
}

}  // namespace
