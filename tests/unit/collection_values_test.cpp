#include <gtest/gtest.h>

#include <cmath>

#include "collection_types.h"
#include "number_types.h"

namespace {

using namespace std::string_literals;

constexpr double largest = 0x1.fffffffffffffp+1023;
constexpr float largestFloat = 0x1.fffffep+127F;

template <class T>
struct Case {
    std::string text;
    T old;
    T expected;
};

template <class T, std::size_t count>
void expectValues(const Case<T> (&cases)[count]) {
    for (const Case<T>& each : cases) {
        EXPECT_EQ(readOver(each.old, each.text), each.expected) << shown(each.text);
    }
}

TEST(CollectionValues, StringListTakesThePiecesBetweenCommas) {
    expectValues<Strings>({{"", {"old"}, {}},
                           {",", {"old"}, {}},
                           {",,,", {"old", "older"}, {}},
                           {"a", {}, {"a"}},
                           {"b,a,b", {"old"}, {"b", "a", "b"}},
                           {",a,,b,", {"old", "older", "oldest"}, {"a", "b"}},
                           {" ", {}, {" "}},
                           {" a , , b", {}, {" a ", " ", " b"}},
                           {"a:b;c", {}, {"a:b;c"}},
                           {"\"a,b\"", {}, {"\"a", "b\""}},
                           {"a\0b,\n"s, {}, {"a\0b"s, "\n"}}});
}

TEST(CollectionValues, StringSetTakesThePiecesBetweenCommas) {
    expectValues<StringSet>({{"", {"old"}, {}},
                             {",", {"old"}, {}},
                             {"b,a,b", {"old"}, {"a", "b"}},
                             {",a,,b,", {}, {"a", "b"}},
                             {"a, a,A, ", {}, {" ", " a", "A", "a"}},
                             {"a:b", {}, {"a:b"}},
                             {"old", {"old", "older"}, {"old"}}});
    EXPECT_EQ(*readOver<StringSet>({}, "\x7F,\xC4,b,a,B").rbegin(), "\xC4") << "ordered as unsigned bytes";
}

TEST(CollectionValues, IntSetTakesTheNumbersBetweenCommas) {
    expectValues<IntSet>({{"", {5}, {}},
                          {",", {5}, {}},
                          {"3,1,2,1", {5}, {1, 2, 3}},
                          {"1, ,3", {5}, {0, 1, 3}},
                          {"1,,3", {5}, {1, 3}},
                          {" ", {5}, {0}},
                          {"abc,7", {}, {0, 7}},
                          {"7,abc", {}, {0, 7}},
                          {"1:2", {}, {1}},
                          {"1-5", {}, {1}},
                          {"[4],5]", {}, {0, 5}},
                          {" 4, 6x", {}, {4, 6}},
                          {"-3,+3", {}, {-3, 3}},
                          {"99999999999,-99999999999", {}, {-2147483647 - 1, 2147483647}}});
}

TEST(CollectionValues, DoubleSetTakesTheNumbersBetweenColons) {
    expectValues<DoubleSet>({{"", {5}, {}},
                             {"::", {5}, {}},
                             {"2.5:-1:2.50", {5}, {-1, 2.5}},
                             {"1: :3", {5}, {0, 1, 3}},
                             {"1::3", {5}, {1, 3}},
                             {" ", {5}, {0}},
                             {"7:abc", {}, {0, 7}},
                             {"1,2", {}, {1}},
                             {"1e400:-1e400", {}, {-largest, largest}}});
}

TEST(CollectionValues, IntListIsReadOverWhatStandsThere) {
    expectValues<Ints>({{"", {1, 2, 3}, {}},
                        {":", {1, 2, 3}, {}},
                        {" : :7", {1, 2, 3}, {1, 2, 7}},
                        {"::7", {1, 2, 3}, {7}},
                        {" ", {1, 2, 3}, {1}},
                        {" : : ", {1, 2, 3}, {1, 2, 3}},
                        {" : : : ", {1, 2, 3}, {1, 2, 3, 0}},
                        {" :\t:5: ", {1}, {1, 0, 5, 0}},
                        {" : ", {}, {0, 0}},
                        {"4: ", {1, 2, 3}, {4, 2}},
                        {"4::5", {1, 2, 3}, {4, 5}},
                        {"x:y", {1, 2, 3}, {0, 0}},
                        {"1,2", {}, {1}},
                        {"3:1:3", {}, {3, 1, 3}},
                        {"1-5: -5", {}, {1, -5}},
                        {"99999999999:-99999999999", {}, {2147483647, -2147483647 - 1}}});
}

TEST(CollectionValues, ListIsReadInTheRoomThatItHas) {
    Ints target{1, 2, 3};
    const int* const room = target.data();
    Kelp::stringToValue(target, "4: :5");
    EXPECT_EQ(target, (Ints{4, 2, 5}));
    EXPECT_EQ(target.data(), room);
}

TEST(CollectionValues, DoubleListIsReadOverWhatStandsThere) {
    expectValues<Doubles>({{"", {1.5, 2.5}, {}},
                           {" : :7.25", {1.5, 2.5, 3.5}, {1.5, 2.5, 7.25}},
                           {"::7", {1.5, 2.5, 3.5}, {7}},
                           {" : : ", {1.5}, {1.5, 0, 0}},
                           {"x: ", {1.5, 2.5, 3.5}, {0, 2.5}},
                           {"1,2", {}, {1}},
                           {".5:1e2:-3.", {}, {0.5, 100, -3}},
                           {"1e400:-1e400", {}, {largest, -largest}}});
}

TEST(CollectionValues, UnsignedPairIsOrdered) {
    expectValues<UnsignedPair>({{"9:2", {7, 6}, {2, 9}},
                                {"2:9", {7, 6}, {2, 9}},
                                {"4:4", {7, 6}, {4, 4}},
                                {" 4: 6", {7, 6}, {4, 6}},
                                {"::4:::6::", {7, 6}, {4, 6}},
                                {"-1:5", {7, 6}, {5, 4294967295U}},
                                {"99999999999:5", {7, 6}, {5, 4294967295U}},
                                {" :5", {7, 6}, {0, 5}},
                                {"5: ", {7, 6}, {0, 5}},
                                {" : ", {7, 6}, {0, 0}},
                                {"x:5", {7, 6}, {0, 5}},
                                {"1,5:2,5", {7, 6}, {1, 2}}});
}

TEST(CollectionValues, RealPairIsOrdered) {
    expectValues<FloatPair>({{"5:1", {7, 6}, {1, 5}},
                             {"2.5:-1.25", {7, 6}, {-1.25F, 2.5F}},
                             {" :5", {7, 6}, {0, 5}},
                             {"-5: ", {7, 6}, {-5, 0}},
                             {"1e39:-1e39", {7, 6}, {-largestFloat, largestFloat}},
                             // Just above the middle of two floats: rounded to double first, it would end below.
                             {"1.000000059604644776:0", {7, 6}, {0, 0x1.000002p+0F}}});
    expectValues<DoublePair>({{"9:2", {7, 6}, {2, 9}},
                              {"0.1:0.2", {7, 6}, {0.1, 0.2}},
                              {" :5", {7, 6}, {0, 5}},
                              {"-5: ", {7, 6}, {-5, 0}},
                              {"x:y", {7, 6}, {0, 0}},
                              {"1e400:-1e400", {7, 6}, {-largest, largest}}});
}

TEST(CollectionValues, EqualNumbersOfAPairAreBothTheSecondOne) {
    const auto [low, high] = readOver<DoublePair>({1, 1}, "0:-0");
    EXPECT_TRUE(std::signbit(low) && std::signbit(high));
    const auto [first, second] = readOver<DoublePair>({1, 1}, "-0:0");
    EXPECT_FALSE(std::signbit(first) || std::signbit(second));
    const auto [lowFloat, highFloat] = readOver<FloatPair>({1.0F, 1.0F}, "0:-0");
    EXPECT_TRUE(std::signbit(lowFloat) && std::signbit(highFloat));
    const auto [firstFloat, secondFloat] = readOver<FloatPair>({1.0F, 1.0F}, "-0:0");
    EXPECT_FALSE(std::signbit(firstFloat) || std::signbit(secondFloat));
}

TEST(CollectionValues, PairStaysUntouchedForAnyOtherNumberOfPieces) {
    for (const char* const text : {"", " ", ":", "::", "5", ":5", "5:", "::5::", "1,2", "1:2:3", "1: :3", "1:2:3:4"}) {
        EXPECT_EQ(readOver<UnsignedPair>({7, 6}, text), UnsignedPair(7, 6)) << shown(text);
        EXPECT_EQ(readOver<FloatPair>({7.0F, 6.0F}, text), FloatPair(7.0F, 6.0F)) << shown(text);
        EXPECT_EQ(readOver<DoublePair>({7, 6}, text), DoublePair(7, 6)) << shown(text);
    }
}

TEST(CollectionValues, TripleKeepsTheWrittenOrder) {
    expectValues<UnsignedTriple>({{"3:2:1", {7, 6, 5}, {3, 2, 1}},
                                  {"1:3:2", {7, 6, 5}, {1, 3, 2}},
                                  {":3::2:1:", {7, 6, 5}, {3, 2, 1}},
                                  {" : : ", {7, 6, 5}, {0, 0, 0}},
                                  {"-1: 4x:99999999999", {7, 6, 5}, {4294967295U, 4, 4294967295U}},
                                  {"", {7, 6, 5}, {7, 6, 5}},
                                  {"1", {7, 6, 5}, {7, 6, 5}},
                                  {"1:2", {7, 6, 5}, {7, 6, 5}},
                                  {"1::2:", {7, 6, 5}, {7, 6, 5}},
                                  {"1:2:3:4", {7, 6, 5}, {7, 6, 5}},
                                  {"1,2,3", {7, 6, 5}, {7, 6, 5}}});
}

}  // namespace
