#ifndef KELPLIB_TESTS_NUMBER_TEXT_MODEL_H
#define KELPLIB_TESTS_NUMBER_TEXT_MODEL_H

#include <kelplib/Kelp.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <type_traits>

#include "bit_pattern.h"

/// A model of the shortest text of a finite number, in either notation.
namespace number_text_model {

/// A number above 0: digits with a point after the first, times a power of ten.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

inline double read(const std::string& text) {
    // On Windows, where paths are wide, strtod is not exact for every text.
    if (std::is_same_v<std::filesystem::path::value_type, char>) {
        return std::strtod(text.c_str(), nullptr);
    }
    double number = 0.0;
    Kelp::stringToValue(number, text);
    return number;
}

/// Returns the number with the fewest digits that read back.
inline Decimal shortestDecimal(double number) {
    Decimal shortest;
    char text[32];
    for (int precision = 16; precision >= 0; --precision) {
        static_cast<void>(std::snprintf(text, sizeof text, "%.*e", precision, number));
        // A text above the largest number may read as that number, so it needs all of its digits.
        const bool largest = number == std::numeric_limits<double>::max() && precision < 16;
        if (largest || bitsOf(read(text)) != bitsOf(number)) {
            break;
        }
        const std::string whole = text;
        const std::size_t mark = whole.find('e');
        shortest = {whole.substr(0, 1), std::stoi(whole.substr(mark + 1))};
        if (precision > 0) {
            shortest.digits += whole.substr(2, mark - 2);
        }
    }
    return shortest;
}

inline std::string scientific(const Decimal& number) {
    std::string text = number.digits;
    if (text.size() > 1) {
        text.insert(1, ".");
    }
    const int magnitude = std::abs(number.exponent);
    return text + (number.exponent < 0 ? "e-" : "e+") + (magnitude < 10 ? "0" : "") + std::to_string(magnitude);
}

inline std::string fixed(const Decimal& number) {
    std::string text = number.digits;
    int integerDigits = number.exponent + 1;
    for (; integerDigits < 1; ++integerDigits) {
        text.insert(0, "0");
    }
    while (static_cast<int>(text.size()) < integerDigits) {
        text += "0";
    }
    if (static_cast<int>(text.size()) > integerDigits) {
        text.insert(static_cast<std::size_t>(integerDigits), ".");
    }
    return text;
}

inline std::string expectedText(double number) {
    const Decimal decimal = shortestDecimal(std::fabs(number));
    const std::string shortFixed = fixed(decimal);
    const std::string shortScientific = scientific(decimal);
    return (std::signbit(number) ? "-" : "") +
           (shortFixed.size() <= shortScientific.size() ? shortFixed : shortScientific);
}

}  // namespace number_text_model

#endif
