#include <string_view>

#include "real_number_reading.h"

namespace Kelpkit {

namespace {

/// Removes the first character if it is a sign.
void skipSign(std::string_view& text) {
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        text.remove_prefix(1);
    }
}

/// Removes the digits at the beginning and returns how many there were.
std::size_t skipDigits(std::string_view& text) {
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count;
}

/// Returns whether the text is an exponent or empty.
bool isExponent(std::string_view text) {
    if (text.empty()) {
        return true;
    }
    if (text.front() != 'e' && text.front() != 'E') {
        return false;
    }
    text.remove_prefix(1);
    skipSign(text);
    return skipDigits(text) > 0 && text.empty();
}

/// Returns the character that separates the fraction in texts that the library reads.
char decimalPoint() {
    return std::use_facet<std::numpunct<char>>(std::locale()).decimal_point();
}

}  // namespace

std::string withPoint(std::string text) {
    const std::size_t point = text.find(decimalPoint());
    if (point != std::string::npos) {
        text[point] = '.';
    }
    return text;
}

bool hasRealForm(const std::string& text) {
    std::string_view rest = text;
    skipSign(rest);
    std::size_t count = skipDigits(rest);
    if (!rest.empty() && rest.front() == decimalPoint()) {
        rest.remove_prefix(1);
        count += skipDigits(rest);
    }
    return count > 0 && isExponent(rest);
}

template std::optional<double> realNumber(const std::string& text);

std::string inDigits(double number) {
    return std::to_string(std::vector<double>{number});
}

Read<double> readValue(const std::string& text, Type<double> /*type*/, const Limits<double>& limits) {
    return readReal(text, limits);
}

}  // namespace Kelpkit
