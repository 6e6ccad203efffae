#include "convert/localized_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "all_texts.h"
#include "digest.h"
#include "locale_facets.h"
#include "number_model.h"
#include "number_types.h"
#include "scoped_locale.h"

namespace {

using number_model::extractedOver;
using number_model::streamsStopWhereTheNumberStops;

// Every short text.

/// Compares all texts with a stream where streams follow the standard. Returns the digest of the values, which is the same
/// on every system.
template <class T>
std::uint64_t compareAllTexts(std::string_view letters) {
    const bool streamsAreAModel = streamsStopWhereTheNumberStops();
    Digest digest;
    forEachText(letters, 5, [&](const std::string& text) {
        const auto actual = readOver<T>(99, text);
        digest.add(bitsOf(actual));
        if (streamsAreAModel && !testing::Test::HasFailure()) {
            EXPECT_EQ(bitsOf(actual), bitsOf(extractedOver<T>(99, text))) << "\"" << text << "\"";
        }
    });
    return digest.value();
}

TEST(LocalizedText, ReadsADecimalCommaAndGroupsAsAStreamDoes) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    EXPECT_EQ(compareAllTexts<int>("10.,-+e "), 13958376838401665802U);
    EXPECT_EQ(compareAllTexts<double>("10.,-+e "), 2885142288651883892U);
}

TEST(LocalizedText, ReadsWithoutGroupsAsAStreamDoes) {
    const ScopedGlobalLocale scope(new Punctuation(""));
    EXPECT_EQ(compareAllTexts<int>("10.,-+e "), 17883171870309626300U);
    EXPECT_EQ(compareAllTexts<double>("10.,-+e "), 1560307249420466345U);
}

TEST(LocalizedText, ReadsSignsThatAreSeparatorsAsAStreamDoes) {
    const ScopedGlobalLocale scope(new Punctuation("\2\1", '-', '+'));
    EXPECT_EQ(compareAllTexts<int>("10-+e "), 2191939195275913045U);
    EXPECT_EQ(compareAllTexts<double>("10-+e "), 7748225021676417679U);
}

// Single texts.

TEST(LocalizedText, ReadsExponentsOfEitherCase) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    const struct {
        const char* text;
        int integer;
        double real;
    } cases[] = {{"1e2", 1, 100.0}, {"1E2", 1, 100.0}, {"2,5e+1", 2, 25.0},    {"2,5E+1", 2, 25.0},
                 {"5e-1", 5, 0.5},  {"5E-1", 5, 0.5},  {"1.000E2", 1000, 1e5}, {"E2", 0, 0.0},
                 {"1D2", 1, 1.0},   {"1F2", 1, 1.0},   {"1E2E3", 1, 100.0}};
    for (const auto& c : cases) {
        EXPECT_EQ(readOver<int>(99, c.text), c.integer) << c.text;
        EXPECT_EQ(readOver<double>(99, c.text), c.real) << c.text;
    }
}

TEST(LocalizedText, EndsWhereTheNumberEnds) {
    const std::locale locale(std::locale::classic(), new Punctuation("\3"));
    const struct {
        std::string_view text;
        const char* real;
        const char* integer;
    } cases[] = {{" 1.234,5e-3x", "1234.5e-3", "1234"},
                 {"-1,5,5", "-1.5", "-1"},
                 {"1e5,5", "1e5", "1"},
                 {"1E5e5", "1e5", "1"},
                 {"1e5.5", "1e5", "1"},
                 {"+,5", "+.5", "+"},
                 {",5", ".5", "?"},
                 {"e5", "?", "?"},
                 {",e5", ".", "?"},
                 {"1..2", "?", "?"},
                 {"x", "?", "?"},
                 {"", "", ""},
                 {" ", "", ""},
                 {std::string_view("1e+5", 2), "1e", "1"},
                 {std::string_view("1-5", 1), "1", "1"}};
    for (const auto& c : cases) {
        EXPECT_EQ(Kelp::classicNumber(c.text, locale, true), c.real) << c.text;
        EXPECT_EQ(Kelp::classicNumber(c.text, locale, false), c.integer) << c.text;
    }
}

TEST(LocalizedText, GroupsOnlyIfTheFirstGroupHasASize) {
    const struct {
        int size;
        int value;
    } cases[] = {{-1, 1}, {0, 1}, {1, 1000}, {CHAR_MAX - 1, 1000}, {CHAR_MAX, 1}};
    for (const auto& c : cases) {
        const std::string grouping = {static_cast<char>(c.size), '\3'};
        const ScopedGlobalLocale scope(new Punctuation(grouping));
        EXPECT_EQ(readOver<int>(99, "1.000"), c.value) << c.size;
    }
}

TEST(LocalizedText, StopsAtTheEndOfItsPiece) {
    const ScopedGlobalLocale point(new Punctuation("", ':', '.'));
    std::vector<double> reals;
    Kelp::stringToValue(reals, "1:25:-3");
    EXPECT_EQ(reals, (std::vector<double>{1, 25, -3}));
    const ScopedGlobalLocale separator(new Punctuation("\3", '.', ':'));
    std::vector<int> integers;
    Kelp::stringToValue(integers, "1:000:2");
    EXPECT_EQ(integers, (std::vector<int>{1, 0, 2}));
}

// Locales whose characters differ.

/// Widens one character to "~".
class Tilde : public std::ctype<char> {
public:
    explicit Tilde(char written) : replaced(written) {}

private:
    char do_widen(char character) const override {
        return character == replaced ? '~' : character;
    }
    const char* do_widen(const char* low, const char* high, char* to) const override {
        std::transform(low, high, to, [this](char character) { return do_widen(character); });
        return high;
    }

    char replaced;
};

TEST(LocalizedText, ChecksEveryCharacterThatANumberMayHave) {
    for (const char character : std::string("-+xX0123456789abcdefABCDEF")) {
        EXPECT_TRUE(Kelp::needsStream(std::locale(std::locale::classic(), new Tilde(character)))) << character;
    }
    for (const char character : std::string(",./:@GWYZ`gwyz ")) {
        EXPECT_FALSE(Kelp::needsStream(std::locale(std::locale::classic(), new Tilde(character)))) << character;
    }
}

TEST(LocalizedText, LeavesOtherCharactersToTheStream) {
    const ScopedGlobalLocale scope(new Tilde('-'));
    for (const char* const text : {"5", "-5", "~5", "-", "~", "5-", "5~"}) {
        EXPECT_EQ(readOver<int>(99, text), extractedOver<int>(99, text)) << text;
        EXPECT_EQ(readOver<double>(99, text), extractedOver<double>(99, text)) << text;
    }
}

}  // namespace
