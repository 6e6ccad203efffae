#include "convert/number_text.h"

#include <charconv>
#include <cmath>
#include <string_view>

#include "util/leading_int.h"

namespace Kelp {

namespace {

/// A finite number above 0 or 0 in scientific notation, as to_chars writes it with the fewest digits: "d.ddde+XX". The
/// choice of notation and the digits of large numbers in fixed notation are made here, because standard libraries differ
/// in them.
struct Scientific {
    explicit Scientific(double number)
        : end(std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::scientific).ptr) {
        const std::string_view whole = text();
        const std::size_t mark = whole.find('e');
        exponent = leadingInt(whole.data() + mark + 1);
        firstDigit = whole.substr(0, 1);
        otherDigits = mark > 1 ? whole.substr(2, mark - 2) : std::string_view();
    }

    std::string_view text() const {
        return {buffer, static_cast<std::size_t>(end - buffer)};
    }

    char buffer[32] = {};
    const char* end;
    int exponent;
    std::string_view firstDigit;
    std::string_view otherDigits;
};

std::size_t fixedLength(const Scientific& number) {
    const auto digits = 1 + number.otherDigits.size();
    if (number.exponent < 0) {
        return digits + 1 + static_cast<std::size_t>(-number.exponent);
    }
    const auto integerDigits = static_cast<std::size_t>(number.exponent) + 1;
    return digits > integerDigits ? digits + 1 : integerDigits;
}

void appendFixed(std::string& text, const Scientific& number) {
    const std::string_view others = number.otherDigits;
    if (number.exponent < 0) {
        text += "0.";
        text.append(static_cast<std::size_t>(-number.exponent) - 1, '0');
        text += number.firstDigit;
        text += others;
        return;
    }
    const auto behindFirst = static_cast<std::size_t>(number.exponent);
    text += number.firstDigit;
    text += others.substr(0, behindFirst);
    if (others.size() > behindFirst) {
        text += '.';
        text += others.substr(behindFirst);
    } else {
        text.append(behindFirst - others.size(), '0');
    }
}

}  // namespace

void appendNumberText(std::string& text, double number) {
    if (std::signbit(number)) {
        text += '-';
        number = -number;
    }
    if (!std::isfinite(number)) {
        text += std::isnan(number) ? "nan" : "inf";
        return;
    }
    const Scientific scientific(number);
    if (fixedLength(scientific) <= scientific.text().size()) {
        appendFixed(text, scientific);
    } else {
        text += scientific.text();
    }
}

}  // namespace Kelp
