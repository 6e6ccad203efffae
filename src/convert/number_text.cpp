#include "convert/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "util/leading_int.h"
#include "util/rounding.h"

namespace Kelp {

namespace {

char* write(char* position, std::string_view text) {
    return std::copy(text.begin(), text.end(), position);
}

char* write(char* position, std::size_t zeros) {
    return std::fill_n(position, zeros, '0');
}

/// A finite number above 0 in scientific notation with the fewest digits: "d.ddde+XX". to_chars writes this the same in
/// every standard library. They differ in when they choose fixed notation and in the digits of large numbers there, so this
/// file decides both.
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

/// Writes an integer in fixed notation: its digits, then zeros up to its exponent.
char* writeFixed(char* position, const Scientific& number) {
    position = write(position, number.firstDigit);
    position = write(position, number.otherDigits);
    return write(position, static_cast<std::size_t>(number.exponent) - number.otherDigits.size());
}

/// Writes a number of at most three decimals, the usual kind, in a third of the time that to_chars takes. At most one
/// text of up to 15 digits reads back to the number, so the one found is the shortest.
/// \returns nullptr for any other number and where scientific notation might be shorter
char* writeThousandths(char* position, double number) {
    constexpr double limit = 1e12;
    if (!(number < limit) || !roundsToNearest()) {
        return nullptr;
    }
    const double scaled = number * 1000.0;
    auto thousandths = static_cast<std::int64_t>(scaled);
    thousandths += scaled - static_cast<double>(thousandths) > 0.5 ? 1 : 0;
    // The product is rounded, so the quotient decides. The comparison merely skips hopeless divisions.
    const auto nearest = static_cast<double>(thousandths);
    if (std::fabs(scaled - nearest) > 0.125 || nearest / 1000.0 != number) {
        return nullptr;
    }
    const std::int64_t whole = thousandths / 1000;
    auto fraction = static_cast<int>(thousandths % 1000);
    if (fraction == 0 && whole % 100000 == 0 && whole != 0) {
        return nullptr;
    }
    position = std::to_chars(position, position + longestNumberText, whole).ptr;
    if (fraction != 0) {
        *position++ = '.';
        for (int unit = 100; fraction != 0; unit /= 10) {
            *position++ = static_cast<char>('0' + fraction / unit);
            fraction %= unit;
        }
    }
    return position;
}

/// Writes a finite number of 0 or more.
char* writeFinite(char* position, double number) {
    if (char* const end = writeThousandths(position, number)) {
        return end;
    }
    // 2^53: every integer below it is exactly a double, and all standard libraries write the same text for it.
    constexpr double exactIntegers = 9007199254740992.0;
    if (number < exactIntegers) {
        return std::to_chars(position, position + longestNumberText, number).ptr;
    }
    const Scientific scientific(number);
    const auto fixedLength = static_cast<std::size_t>(scientific.exponent) + 1;
    return fixedLength <= scientific.text().size() ? writeFixed(position, scientific)
                                                   : write(position, scientific.text());
}

}  // namespace

char* writeNumberText(char* position, double number) {
    if (std::signbit(number)) {
        *position++ = '-';
        number = -number;
    }
    if (!std::isfinite(number)) {
        return write(position, std::isnan(number) ? "nan" : "inf");
    }
    return writeFinite(position, number);
}

}  // namespace Kelp
