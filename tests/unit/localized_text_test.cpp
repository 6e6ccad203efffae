#include "convert/localized_text.h"

#include <gtest/gtest.h>

#include <sstream>

#include "all_texts.h"
#include "digest.h"
#include "number_types.h"
#include "scoped_locale.h"

namespace {

/// A locale with these two characters and this grouping.
class Punctuation : public std::numpunct<char> {
public:
    Punctuation(char decimalPoint, char thousandsSeparator, std::string groups)
        : point(decimalPoint), separator(thousandsSeparator), grouping(std::move(groups)) {}

private:
    char do_decimal_point() const override {
        return point;
    }
    char do_thousands_sep() const override {
        return separator;
    }
    std::string do_grouping() const override {
        return grouping;
    }

    char point;
    char separator;
    std::string grouping;
};

template <class T>
T extractedOver(T old, const std::string& text) {
    std::stringstream(text) >> old;
    return old;
}

/// Whether streams here follow the standard to the letter. Some do not, in grouping and in what follows a number.
bool streamsStopWhereTheNumberStops() {
    return extractedOver(99.0, "12a") == 12.0;
}

/// Compares with a stream wherever streams are a model, and returns the digest of all values, the same on every system.
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
    const ScopedGlobalLocale scope(new Punctuation(',', '.', "\3"));
    EXPECT_EQ(compareAllTexts<int>("10.,-+e "), 13958376838401665802U);
    EXPECT_EQ(compareAllTexts<double>("10.,-+e "), 2885142288651883892U);
}

TEST(LocalizedText, ReadsWithoutGroupsAsAStreamDoes) {
    const ScopedGlobalLocale scope(new Punctuation(',', '.', ""));
    EXPECT_EQ(compareAllTexts<int>("10.,-+e "), 17883171870309626300U);
    EXPECT_EQ(compareAllTexts<double>("10.,-+e "), 1560307249420466345U);
}

TEST(LocalizedText, ReadsSignsThatAreSeparatorsAsAStreamDoes) {
    const ScopedGlobalLocale scope(new Punctuation('-', '+', "\2\1"));
    EXPECT_EQ(compareAllTexts<int>("10-+e "), 2191939195275913045U);
    EXPECT_EQ(compareAllTexts<double>("10-+e "), 7748225021676417679U);
}

/// Writes "-" as "~".
class Tilde : public std::ctype<char> {
private:
    char do_widen(char character) const override {
        return character == '-' ? '~' : character;
    }
};

TEST(LocalizedText, LeavesOtherCharactersToTheStream) {
    const ScopedGlobalLocale scope(new Tilde);
    for (const char* const text : {"5", "-5", "~5", "-", "~", "5-", "5~"}) {
        EXPECT_EQ(readOver<int>(99, text), extractedOver<int>(99, text)) << text;
        EXPECT_EQ(readOver<double>(99, text), extractedOver<double>(99, text)) << text;
    }
}

}  // namespace
