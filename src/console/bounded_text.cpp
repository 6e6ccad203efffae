#include "console/bounded_text.h"

#include <charconv>
#include <cstdio>

#include "platform/platform.h"
#include "util/rounding.h"

namespace Kelp {

namespace {

/// Rounds the exact product of ten and the number to the nearest integer, a tie to the even one, as printf does.
/// \param number  above 0 and below 1e8
int roundToTenths(double number) {
    const double eight = number * 8.0;
    const double two = number * 2.0;
    const double tenths = eight + two;
    const auto whole = static_cast<int>(tenths);
    const double rest = tenths - whole;
    if (rest != 0.5) {
        return rest > 0.5 ? whole + 1 : whole;
    }
    // A tie is decided by the rounding error of the sum, which Dekker's Fast2Sum (1971) gives exactly.
    const double lost = two - (tenths - eight);
    return lost > 0.0 || (lost == 0.0 && whole % 2 != 0) ? whole + 1 : whole;
}

}  // namespace

void BoundedText::append(int number) {
    char digits[16];
    const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    append(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

void BoundedText::appendTenths(double number) {
    // printf takes longer than the rest of a progress line together, so only unusual numbers go through it.
    if (number > 0.0 && number < 1e8 && roundsToNearest() && platform::printsDecimalPoint()) {
        const int tenths = roundToTenths(number);
        append(tenths / 10);
        const char decimals[] = {'.', static_cast<char>('0' + tenths % 10)};
        append(std::string_view(decimals, sizeof decimals));
        return;
    }
    // The largest double has 309 digits before its point.
    char digits[320];
    const int count = std::snprintf(digits, sizeof digits, "%.1f", number);
    append(std::string_view(digits, static_cast<std::size_t>(count)));
}

}  // namespace Kelp
