#include "convert/localized_text.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <string_view>
#include <typeinfo>

#include "convert/number_reading.h"

namespace Kelp {

namespace {

/// Reads as 0, because it is not a number.
constexpr char noNumber = '?';

/// Collects a number character by character.
class ClassicNumber {
public:
    ClassicNumber(const std::locale& locale, bool real)
        : ClassicNumber(std::use_facet<std::numpunct<char>>(locale), real) {}

    std::string read(const char* position, const char* end) {
        takeSign(position, end);
        while (position != end && take(*position)) {
            const bool signMayFollow = *position == 'e' || *position == 'E';
            ++position;
            if (signMayFollow) {
                takeSign(position, end);
            }
        }
        return number;
    }

private:
    ClassicNumber(const std::numpunct<char>& punctuation, bool real)
        : real(real), point(punctuation.decimal_point()), separator(punctuation.thousands_sep()) {
        const std::string grouping = punctuation.grouping();
        grouped = !grouping.empty() && grouping.front() > 0 && grouping.front() != CHAR_MAX;
    }

    void takeSign(const char*& position, const char* end) {
        const bool sign = position != end && (*position == '-' || *position == '+');
        if (sign && *position != point && !isSeparator(*position)) {
            number += *position++;
        }
    }

    /// \returns false at the first character that does not belong to the number
    bool take(char character) {
        if (isSeparator(character)) {
            return takeSeparator();
        }
        if (character == point) {
            return takeOnce(real && !hasPoint && !hasExponent, hasPoint, '.');
        }
        if (isDigit(character)) {
            number += character;
            hasDigit = true;
            digitBefore = true;
            return true;
        }
        return (character == 'e' || character == 'E') && takeOnce(real && hasDigit && !hasExponent, hasExponent, 'e');
    }

    bool takeSeparator() {
        if (hasPoint || hasExponent) {
            return false;
        }
        if (!digitBefore) {
            number.assign(1, noNumber);
            return false;
        }
        digitBefore = false;
        return true;
    }

    bool takeOnce(bool allowed, bool& taken, char classic) {
        if (allowed) {
            number += classic;
            taken = true;
        }
        return allowed;
    }

    bool isSeparator(char character) const {
        return grouped && character == separator;
    }

    bool real;
    char point;
    char separator;
    bool grouped = false;
    bool hasDigit = false;
    bool hasPoint = false;
    bool hasExponent = false;
    bool digitBefore = false;  ///< whether a digit follows the last separator
    std::string number;
};

/// Whether the locale widens a character that numbers consist of to a different one.
bool usesOtherCharacters(const std::locale& locale) {
    const auto& characters = std::use_facet<std::ctype<char>>(locale);
    constexpr std::string_view ofNumbers = "-+xX0123456789abcdefABCDEF";
    return std::any_of(ofNumbers.begin(), ofNumbers.end(),
                       [&](char character) { return characters.widen(character) != character; });
}

}  // namespace

bool hasUsedLocales() {
    // The first locale numbers its facets (libstdc++, seen with 12 and 14; libc++, seen with 14).
    constexpr unsigned char unused[sizeof(std::locale::id)] = {};
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): the number is private
    return std::memcmp(&std::ctype<char>::id, unused, sizeof unused) != 0;
}

bool needsStream(const std::locale& locale) {
    const auto& reader = std::use_facet<std::num_get<char>>(locale);
    return typeid(reader) != typeid(std::num_get<char>) || usesOtherCharacters(locale);
}

std::string classicNumber(std::string_view text, const std::locale& locale, bool real) {
    const char* const end = text.data() + text.size();
    const char* const begin =
        std::use_facet<std::ctype<char>>(locale).scan_not(std::ctype_base::space, text.data(), end);
    if (begin == end) {
        return {};
    }
    const std::string number = ClassicNumber(locale, real).read(begin, end);
    return number.empty() ? std::string(1, noNumber) : number;
}

}  // namespace Kelp
