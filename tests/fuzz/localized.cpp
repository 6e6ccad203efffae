// Reads numbers under a global locale with its own punctuation. Input: a line with the decimal point, the separator and the
// group sizes, then the text. The results are compared with a string stream and, for integers that do not fit, with the
// limits of their types.
#include <kelplib/Kelp.h>

#include <algorithm>
#include <climits>

#include "check.h"
#include "input.h"
#include "number_model.h"
#include "scoped_locale.h"
#include "target.h"

namespace {

class Punctuation : public std::numpunct<char> {
public:
    explicit Punctuation(std::string line) : marks(std::move(line)) {
        marks.resize(std::max<std::size_t>(marks.size(), 2), ',');
    }

protected:
    char do_decimal_point() const override {
        return marks[0];
    }
    char do_thousands_sep() const override {
        return marks[1];
    }
    std::string do_grouping() const override {
        return marks.substr(2);
    }

private:
    std::string marks;
};

/// Returns whether the locale groups digits.
bool isGrouped(const std::string& marks) {
    return marks.size() > 2 && marks[2] > 0 && marks[2] != CHAR_MAX;
}

/// Returns the digits of an integer without separators and leading zeros. Returns none if a separator has no digit before
/// it, because then there is no number.
std::string digitsOf(const std::string& number, char separator) {
    std::string digits;
    bool digitBefore = false;
    for (const char c : number) {
        const bool isDigit = c >= '0' && c <= '9';
        if (c == separator && !digitBefore) {
            return "";
        }
        if (c != separator && !isDigit) {
            break;
        }
        digits += isDigit ? std::string(1, c) : "";
        digitBefore = isDigit;
    }
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

/// Sets limit to the end of the type's range in the direction of the integer's sign.
/// \returns whether the integer is beyond it
template <class T>
bool isBeyond(T& limit, const std::string& text, char separator) {
    const std::string number = text.substr(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    const bool negative = number.rfind('-', 0) == 0;
    const bool sign = negative || number.rfind('+', 0) == 0;
    const std::string digits = digitsOf(number.substr(sign ? 1 : 0), separator);
    const bool lowest = negative && std::is_signed_v<T>;
    limit = lowest ? std::numeric_limits<T>::lowest() : std::numeric_limits<T>::max();
    const std::string limitDigits = std::to_string(limit).substr(lowest ? 1 : 0);
    return digits.size() > limitDigits.size() || (digits.size() == limitDigits.size() && digits > limitDigits);
}

/// Returns the limit for an integer that does not fit, because libstdc++'s stream then loses count of a group's digits and
/// gives 0. Otherwise returns the stream's result.
template <class T>
T expectedOver(T old, const std::string& text, const std::string& marks) {
    if constexpr (std::is_integral_v<T>) {
        if (T limit = 0; isGrouped(marks) && isBeyond(limit, text, marks[1])) {
            return limit;
        }
    }
    return number_model::extractedOver(old, text);
}

template <class T>
void expectNumber(const char* type, T old, const std::string& text, const std::string& marks) {
    T actual = old;
    Kelp::stringToValue(actual, text);
    fuzz::expectSame(type, actual, expectedOver(old, text, marks));
}

/// Returns whether decimal point and separator are distinct punctuation marks, not digits, signs, letters or blanks.
bool isUsual(const std::string& marks) {
    return marks.size() >= 2 && marks.find_first_not_of(".,';_:") >= 2 && marks[0] != marks[1];
}

}  // namespace

void fuzz::localized(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::string marks = input.line();
    const std::string text = input.rest();
    // Streams of other standard libraries treat misplaced separators differently.
    if (!isUsual(marks) || !number_model::streamsStopWhereTheNumberStops()) {
        return;
    }
    const ScopedGlobalLocale scope(new Punctuation(marks));
    expectNumber<int>("int", 7, text, marks);
    expectNumber<unsigned short>("unsigned short", 7, text, marks);
    expectNumber<unsigned int>("unsigned int", 7, text, marks);
    expectNumber<unsigned long long>("unsigned long long", 7, text, marks);
    if (number_model::exactCLibrary) {
        expectNumber<double>("double", 7, text, marks);
        expectNumber<float>("float", 7, text, marks);
    }
}
