#include <gtest/gtest.h>

#include <cmath>

#include "all_texts.h"
#include "locale_facets.h"
#include "number_model.h"
#include "number_types.h"
#include "pieces_of.h"
#include "scoped_locale.h"

namespace {

using namespace std::string_literals;
using number_model::extractedOver;

using Strings = std::vector<std::string>;
using StringSet = std::set<std::string>;
using Ints = std::vector<int>;
using IntSet = std::set<int>;
using Doubles = std::vector<double>;
using DoubleSet = std::set<double>;
using UnsignedPair = std::tuple<unsigned int, unsigned int>;
using UnsignedTriple = std::tuple<unsigned int, unsigned int, unsigned int>;
using FloatPair = std::tuple<float, float>;
using DoublePair = std::tuple<double, double>;

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

// Lists and sets.

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

TEST(CollectionValues, IntListIsReadOverTheOldElements) {
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

/// Returns `count` times `piece`.
std::string repeated(const std::string& piece, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += piece;
    }
    return text;
}

// The length of the first pieces says little about how many follow.
TEST(CollectionValues, ListMayBeOfAnyLength) {
    const struct {
        std::string first;
        std::string then;
    } cases[] = {{"1:", "2:"},
                 {"1:", "    0000000000000002:"},
                 {"    0000000000000001:", "2:"},
                 {"1::::::::", "2:"},
                 {"1:", "2::::::::"}};
    for (const auto& each : cases) {
        for (const std::size_t count : {0U, 1U, 14U, 15U, 16U, 17U, 1000U, 10000U}) {
            Ints expected(count, 2);
            expected.insert(expected.begin(), 15, 1);
            Ints target;
            Kelp::stringToValue(target, repeated(each.first, 15) + repeated(each.then, count));
            EXPECT_EQ(target, expected) << each.first << each.then << count;
            EXPECT_LE(target.capacity(), 32 + 15 * count) << each.first << each.then << count;
        }
    }
}

TEST(CollectionValues, ListKeepsItsMemory) {
    Ints target{1, 2, 3};
    const int* const memory = target.data();
    Kelp::stringToValue(target, "4: :5");
    EXPECT_EQ(target, (Ints{4, 2, 5}));
    EXPECT_EQ(target.data(), memory);
}

TEST(CollectionValues, DoubleListIsReadOverTheOldElements) {
    expectValues<Doubles>({{"", {1.5, 2.5}, {}},
                           {" : :7.25", {1.5, 2.5, 3.5}, {1.5, 2.5, 7.25}},
                           {"::7", {1.5, 2.5, 3.5}, {7}},
                           {" : : ", {1.5}, {1.5, 0, 0}},
                           {"x: ", {1.5, 2.5, 3.5}, {0, 2.5}},
                           {"1,2", {}, {1}},
                           {".5:1e2:-3.", {}, {0.5, 100, -3}},
                           {"1e400:-1e400", {}, {largest, -largest}}});
}

// Pairs and triples.

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
    expectValues<FloatPair>(
        {{"5:1", {7, 6}, {1, 5}},
         {"2.5:-1.25", {7, 6}, {-1.25F, 2.5F}},
         {" :5", {7, 6}, {0, 5}},
         {"-5: ", {7, 6}, {-5, 0}},
         {"1e39:-1e39", {7, 6}, {-largestFloat, largestFloat}},
         // Just above the midpoint of two floats. Rounding to double first would give the lower one.
         {"1.000000059604644776:0", {7, 6}, {0, 0x1.000002p+0F}}});
    expectValues<DoublePair>({{"9:2", {7, 6}, {2, 9}},
                              {"0.1:0.2", {7, 6}, {0.1, 0.2}},
                              {" :5", {7, 6}, {0, 5}},
                              {"-5: ", {7, 6}, {-5, 0}},
                              {"x:y", {7, 6}, {0, 0}},
                              {"1e400:-1e400", {7, 6}, {-largest, largest}}});
}

TEST(CollectionValues, EqualNumbersOfAPairBothBecomeTheSecondOne) {
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

// Under a global locale.

TEST(CollectionValuesUnderALocale, TakeItsDecimalPointAndGroups) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    EXPECT_EQ(readOver<IntSet>({}, "12.345,7"), (IntSet{7, 12345}));
    EXPECT_EQ(readOver<DoubleSet>({}, "1.234,5:2"), (DoubleSet{2, 1234.5}));
    EXPECT_EQ(readOver<Ints>({1, 2}, " :1.000:12.34"), (Ints{1, 1000, 1234}));
    EXPECT_EQ(readOver<Doubles>({1.5, 2.5}, " :,5:-1,5e1"), (Doubles{1.5, 0.5, -15}));
    EXPECT_EQ(readOver<UnsignedPair>({7, 6}, "1.000:5"), UnsignedPair(5, 1000));
    EXPECT_EQ(readOver<UnsignedTriple>({7, 6, 5}, "1.000:5:2.000"), UnsignedTriple(1000, 5, 2000));
    EXPECT_EQ(readOver<FloatPair>({7.0F, 6.0F}, "2,5:1,5"), FloatPair(1.5F, 2.5F));
    EXPECT_EQ(readOver<DoublePair>({7, 6}, "1.234,5:1,5"), DoublePair(1.5, 1234.5));
}

TEST(CollectionValuesUnderALocale, AreCutAtTheSameSeparators) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    EXPECT_EQ(readOver<Strings>({}, "1.000,5:6"), (Strings{"1.000", "5:6"}));
    EXPECT_EQ(readOver<IntSet>({}, "1,5"), (IntSet{1, 5}));
    EXPECT_EQ(readOver<DoubleSet>({}, "1,5"), (DoubleSet{1.5}));
    EXPECT_EQ(readOver<DoublePair>({7, 6}, "1,5"), DoublePair(7, 6));
}

TEST(CollectionValuesUnderALocale, SkipItsBlanks) {
    const ScopedGlobalLocale scope(new UnderscoreBlank);
    EXPECT_EQ(readOver<Ints>({1, 2}, "_:_5"), (Ints{1, 5}));
    EXPECT_EQ(readOver<Ints>({1, 2}, " :5"), (Ints{0, 5}));
    EXPECT_EQ(readOver<Doubles>({1, 2}, "5:_"), (Doubles{5, 2}));
    EXPECT_EQ(readOver<IntSet>({9}, "_"), (IntSet{0}));
    EXPECT_EQ(readOver<UnsignedPair>({7, 6}, "_:5"), UnsignedPair(0, 5));
}

TEST(CollectionValuesUnderALocale, CallItsNumberReader) {
    const ScopedGlobalLocale scope(new SeventySeven);
    EXPECT_EQ(readOver<IntSet>({}, "1,2, "), (IntSet{0, 77}));
    EXPECT_EQ(readOver<Doubles>({1, 2}, " :5"), (Doubles{1, 77}));
    EXPECT_EQ(readOver<UnsignedTriple>({7, 6, 5}, "1: :3"), UnsignedTriple(77, 0, 77));
    EXPECT_EQ(readOver<FloatPair>({7.0F, 6.0F}, "1: "), FloatPair(0.0F, 77.0F));
}

// Every short text.

// Reads every text of up to five characters over several old contents. The models repeat the rules in the simplest way
// and read numbers with a string stream: the streams of all standard libraries agree on this alphabet.

constexpr std::string_view letters = "07,: -.";
constexpr std::size_t longest = 5;

Strings modelOf(const Strings& /*old*/, const std::string& text) {
    return piecesOf(text, ',');
}

StringSet modelOf(const StringSet& /*old*/, const std::string& text) {
    const Strings pieces = piecesOf(text, ',');
    return {pieces.begin(), pieces.end()};
}

template <class T>
std::set<T> modelOf(const std::set<T>& /*old*/, const std::string& text) {
    std::set<T> expected;
    for (const std::string& piece : piecesOf(text, std::is_same_v<T, int> ? ',' : ':')) {
        expected.insert(extractedOver<T>(0, piece));
    }
    return expected;
}

template <class T>
std::vector<T> modelOf(const std::vector<T>& old, const std::string& text) {
    std::vector<T> expected;
    for (const std::string& piece : piecesOf(text, ':')) {
        const std::size_t i = expected.size();
        expected.push_back(extractedOver<T>(i < old.size() ? old[i] : 0, piece));
    }
    return expected;
}

template <class T>
std::tuple<T, T> modelOf(const std::tuple<T, T>& old, const std::string& text) {
    const Strings pieces = piecesOf(text, ':');
    if (pieces.size() != 2) {
        return old;
    }
    const T first = extractedOver<T>(0, pieces[0]);
    const T second = extractedOver<T>(0, pieces[1]);
    if (first < second) {
        return {first, second};
    }
    return {second, first > second ? first : second};
}

UnsignedTriple modelOf(const UnsignedTriple& old, const std::string& text) {
    const Strings pieces = piecesOf(text, ':');
    if (pieces.size() != 3) {
        return old;
    }
    return {extractedOver(0U, pieces[0]), extractedOver(0U, pieces[1]), extractedOver(0U, pieces[2])};
}

/// Returns something that differs for 0 and -0, which compare equal.
template <class T>
std::uint64_t exact(T value) {
    return bitsOf(value);
}
std::string exact(const std::string& value) {
    return value;
}

template <class Collection>
auto exactly(const Collection& values) {
    std::vector<decltype(exact(*values.begin()))> bits;
    bits.reserve(values.size());
    for (const auto& value : values) {
        bits.push_back(exact(value));
    }
    return bits;
}
template <class... T>
std::vector<std::uint64_t> exactly(const std::tuple<T...>& values) {
    return std::apply([](auto... value) { return std::vector<std::uint64_t>{bitsOf(value)...}; }, values);
}

template <class T>
const std::vector<T> oldContents;
template <>
const std::vector<Strings> oldContents<Strings>{{}, {"old", "0", "7"}};
template <>
const std::vector<StringSet> oldContents<StringSet>{{}, {"old", "0", "7"}};
template <>
const std::vector<IntSet> oldContents<IntSet>{{}, {0, 5, 7}};
template <>
const std::vector<DoubleSet> oldContents<DoubleSet>{{}, {-0.0, 5, 7}};
template <>
const std::vector<Ints> oldContents<Ints>{{}, {5}, {5, 6}, {1, 2, 3, 4, 5, 6}};
template <>
const std::vector<Doubles> oldContents<Doubles>{{}, {5}, {5, 6}, {-0.0, 2, 3, 4, 5, 6}};
template <>
const std::vector<UnsignedPair> oldContents<UnsignedPair>{{6, 5}};
template <>
const std::vector<UnsignedTriple> oldContents<UnsignedTriple>{{6, 5, 4}};
template <>
const std::vector<FloatPair> oldContents<FloatPair>{{6.0F, -0.0F}};
template <>
const std::vector<DoublePair> oldContents<DoublePair>{{6, -0.0}};

using Types = ::testing::Types<Strings, StringSet, IntSet, DoubleSet, Ints, Doubles, UnsignedPair, UnsignedTriple,
                               FloatPair, DoublePair>;

struct TypeNames {
    template <class T>
    static std::string GetName(int index) {
        const char* const names[] = {"Strings", "StringSet",    "IntSet",         "DoubleSet", "Ints",
                                     "Doubles", "UnsignedPair", "UnsignedTriple", "FloatPair", "DoublePair"};
        return names[index];
    }
};

template <class T>
class AllShortTextsOfCollections : public ::testing::Test {};

TYPED_TEST_SUITE(AllShortTextsOfCollections, Types, TypeNames);

TYPED_TEST(AllShortTextsOfCollections, AgreeWithTheRules) {
    ASSERT_FALSE(oldContents<TypeParam>.empty());
    for (const TypeParam& old : oldContents<TypeParam>) {
        forEachText(letters, longest, [&old](const std::string& text) {
            ASSERT_EQ(exactly(readOver(old, text)), exactly(modelOf(old, text)))
                << shown(text) << " over " << ::testing::PrintToString(old);
        });
    }
}

}  // namespace
