#include <gtest/gtest.h>

#include <sstream>

#include "all_texts.h"
#include "number_types.h"
#include "pieces_of.h"

/// Every short text over a small alphabet, read over several old contents, compared with the rules written down once more
/// in the plainest way. In this alphabet the streams of every library read numbers alike.
namespace {

constexpr std::string_view letters = "07,: -.";
constexpr std::size_t longest = 5;

template <class T>
T extractedOver(T old, const std::string& text) {
    std::stringstream(text) >> old;
    return old;
}

std::vector<std::string> modelOf(const std::vector<std::string>& /*old*/, const std::string& text) {
    return piecesOf(text, ',');
}

std::set<std::string> modelOf(const std::set<std::string>& /*old*/, const std::string& text) {
    const std::vector<std::string> pieces = piecesOf(text, ',');
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
    const std::vector<std::string> pieces = piecesOf(text, ':');
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

using UnsignedTriple = std::tuple<unsigned int, unsigned int, unsigned int>;

UnsignedTriple modelOf(const UnsignedTriple& old, const std::string& text) {
    const std::vector<std::string> pieces = piecesOf(text, ':');
    if (pieces.size() != 3) {
        return old;
    }
    return {extractedOver(0U, pieces[0]), extractedOver(0U, pieces[1]), extractedOver(0U, pieces[2])};
}

/// Something that differs whenever a bit differs: 0 and -0 are equal numbers.
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
const std::vector<std::vector<std::string>> oldContents<std::vector<std::string>>{{}, {"old", "0", "7"}};
template <>
const std::vector<std::set<std::string>> oldContents<std::set<std::string>>{{}, {"old", "0", "7"}};
template <>
const std::vector<std::set<int>> oldContents<std::set<int>>{{}, {0, 5, 7}};
template <>
const std::vector<std::set<double>> oldContents<std::set<double>>{{}, {-0.0, 5, 7}};
template <>
const std::vector<std::vector<int>> oldContents<std::vector<int>>{{}, {5}, {5, 6}, {1, 2, 3, 4, 5, 6}};
template <>
const std::vector<std::vector<double>> oldContents<std::vector<double>>{{}, {5}, {5, 6}, {-0.0, 2, 3, 4, 5, 6}};
template <>
const std::vector<std::tuple<unsigned int, unsigned int>> oldContents<std::tuple<unsigned int, unsigned int>>{{6, 5}};
template <>
const std::vector<UnsignedTriple> oldContents<UnsignedTriple>{{6, 5, 4}};
template <>
const std::vector<std::tuple<float, float>> oldContents<std::tuple<float, float>>{{6.0F, -0.0F}};
template <>
const std::vector<std::tuple<double, double>> oldContents<std::tuple<double, double>>{{6, -0.0}};

using Types = ::testing::Types<std::vector<std::string>, std::set<std::string>, std::set<int>, std::set<double>,
                               std::vector<int>, std::vector<double>, std::tuple<unsigned int, unsigned int>,
                               UnsignedTriple, std::tuple<float, float>, std::tuple<double, double>>;

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
