#include "convert/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "convert/digit_blocks.h"
#include "convert/shortest_digits.h"
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

constexpr std::array<std::uint64_t, 17> makePowersOfTen() {
    std::array<std::uint64_t, 17> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) {
        powers[i] = powers[i - 1] * 10;
    }
    return powers;
}

constexpr auto powersOfTen = makePowersOfTen();

/// Writes a number above 1 that is not whole. No text between two numbers is whole, so its whole part is that of its text.
char* writeMixed(char* position, std::uint64_t whole, const ShortestDigits& shortest) {
    const auto decimals = static_cast<std::size_t>(shortest.decimals);
    position = std::to_chars(position, position + numberTextRoom, whole).ptr;
    *position++ = '.';
    return writeDecimals(position, (shortest.digits - whole * powersOfTen[decimals]) * powersOfTen[16 - decimals]);
}

/// Writes a number below 1.
char* writeFraction(char* position, const ShortestDigits& shortest) {
    constexpr std::uint64_t seventeenDigits = powersOfTen[16];
    const bool hasSixteen = shortest.digits < seventeenDigits;
    const std::uint64_t digits = hasSixteen ? shortest.digits * 10 : shortest.digits;
    const auto first = static_cast<char>('0' + digits / seventeenDigits);
    const std::uint64_t others = digits % seventeenDigits;
    // The zeros between the point and the first digit.
    const int zeros = shortest.decimals - (hasSixteen ? 16 : 17);
    if (zeros <= (others != 0 ? 3 : 2)) {
        position = write(position, "0.");
        position = write(position, static_cast<std::size_t>(zeros));
        *position++ = first;
        return others != 0 ? writeDecimals(position, others) : position;
    }
    *position++ = first;
    if (others != 0) {
        *position++ = '.';
        position = writeDecimals(position, others);
    }
    const int exponent = zeros + 1;
    position = write(position, "e-");
    *position++ = static_cast<char>('0' + exponent / 10);
    *position++ = static_cast<char>('0' + exponent % 10);
    return position;
}

/// Writes a number that shortestDigits handles and that is not whole.
char* writeShortest(char* position, double number) {
    constexpr int fractionBits = 52;
    constexpr std::uint64_t one = std::uint64_t{1} << fractionBits;
    constexpr int exponentOfOne = 1023;
    std::uint64_t bits = 0;
    static_assert(sizeof bits == sizeof number);
    std::memcpy(&bits, &number, sizeof bits);
    const std::uint64_t fraction = bits & (one - 1);
    if (fraction == 0) {
        return std::to_chars(position, position + numberTextRoom, number).ptr;
    }
    const auto exponent = static_cast<int>(bits >> fractionBits) - exponentOfOne;
    const ShortestDigits shortest = shortestDigits(one | fraction, fractionBits - exponent);
    return exponent >= 0 ? writeMixed(position, static_cast<std::uint64_t>(number), shortest)
                         : writeFraction(position, shortest);
}

/// Writes a number of at most three decimals, the usual kind, in two thirds of the time of writeShortest. At most one text of up
/// to 15 digits reads back to the number, so the one found is the shortest.
/// \returns nullptr for any other number
char* writeThousandths(char* position, double number) {
    constexpr double limit = 1e12;
    if (!(number < limit)) {
        return nullptr;
    }
    const double scaled = number * 1000.0;
    auto thousandths = static_cast<std::int64_t>(scaled);
    thousandths += scaled - static_cast<double>(thousandths) > 0.5 ? 1 : 0;
    const auto nearest = static_cast<double>(thousandths);
    // The product is rounded, so the quotient decides. The product of a quotient differs by a rounding error at most; the
    // comparison skips the other divisions.
    if (std::fabs(scaled - nearest) > scaled * 0x1p-51 || !roundsToNearest() || nearest / 1000.0 != number) {
        return nullptr;
    }
    position = std::to_chars(position, position + numberTextRoom, thousandths / 1000).ptr;
    *position++ = '.';
    auto fraction = static_cast<int>(thousandths % 1000);
    for (int unit = 100; fraction != 0; unit /= 10) {
        *position++ = static_cast<char>('0' + fraction / unit);
        fraction %= unit;
    }
    return position;
}

/// Writes a whole number below 2^53.
char* writeWhole(char* position, double number) {
    const auto whole = static_cast<std::uint64_t>(number);
    // With five zeros at the end, scientific notation may be shorter.
    return whole % 100000 == 0 && whole != 0 ? std::to_chars(position, position + numberTextRoom, number).ptr
                                             : std::to_chars(position, position + numberTextRoom, whole).ptr;
}

/// Writes a finite number of 0 or more.
char* writeFinite(char* position, double number) {
    // Every integer below 2^53 is exactly a double, and all standard libraries write the same text for it.
    if (number < limitOfShortestDigits) {
        if (static_cast<double>(static_cast<std::int64_t>(number)) == number) {
            return writeWhole(position, number);
        }
        if (char* const end = writeThousandths(position, number)) {
            return end;
        }
        return number < leastShortestDigits ? std::to_chars(position, position + numberTextRoom, number).ptr
                                            : writeShortest(position, number);
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
