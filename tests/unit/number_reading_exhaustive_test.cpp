#include <gtest/gtest.h>

#include "all_texts.h"
#include "convert/number_reading.h"
#include "digest.h"
#include "number_model.h"
#include "number_types.h"

namespace {

using namespace std::string_view_literals;
using number_model::extractedOver;
using number_model::streamsStopWhereTheNumberStops;

constexpr auto letters = "019+-.eEx a\0"sv;
constexpr std::size_t longest = 5;

/// The digest of what is read from all texts, each over 99. Typed in below: the same on every system.
template <class T>
constexpr std::uint64_t expectedDigest = 0;
template <>
constexpr std::uint64_t expectedDigest<int> = 7162669966019597780U;
template <>
constexpr std::uint64_t expectedDigest<unsigned short> = 15232543483640665292U;
template <>
constexpr std::uint64_t expectedDigest<unsigned int> = 1840244080429398812U;
template <>
constexpr std::uint64_t expectedDigest<unsigned long long> = 7162669966019597780U;
template <>
constexpr std::uint64_t expectedDigest<double> = 7621400800250876200U;
template <>
constexpr std::uint64_t expectedDigest<float> = 16700485091828929992U;

template <class T>
class AllShortTexts : public ::testing::Test {};

TYPED_TEST_SUITE(AllShortTexts, NumberTypes, NumberTypeNames);

TYPED_TEST(AllShortTexts, ReadAsAStreamReadsThemAndTheSameOnEverySystem) {
    // Integers are read alike by the streams of every library.
    const bool streamsAreAModel = std::is_integral_v<TypeParam> || streamsStopWhereTheNumberStops();
    Digest digest;
    forEachText(letters, longest, [&](const std::string& text) {
        const auto actual = readOver<TypeParam>(99, text);
        digest.add(bitsOf(actual));
        if (streamsAreAModel && !this->HasFailure()) {
            EXPECT_EQ(bitsOf(actual), bitsOf(extractedOver<TypeParam>(99, text))) << shown(text);
        }
    });
    EXPECT_EQ(digest.value(), expectedDigest<TypeParam>);
}

}  // namespace
