#include <kelpkit/Values.h>

#include <algorithm>

#include "slice.h"

namespace slice {

namespace {

/// The longest time, including the blanks before it.
constexpr std::size_t maxBytes = 100;

constexpr std::string_view blanks = " \t";
constexpr std::string_view ends = " \t\r,;]";
constexpr std::string_view digits = "0123456789";

using Numbers = std::array<int, 3>;

/// Removes a text of this shape, in which "0" is any digit, from the beginning. Returns its numbers; none if the text begins
/// otherwise, and then leaves it unchanged.
std::optional<Numbers> take(std::string_view& text, std::string_view shape) {
    Numbers numbers{};
    std::size_t index = 0;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const bool isDigit = i < text.size() && digits.find(text[i]) != std::string_view::npos;
        if (i == text.size() || (shape[i] == '0' ? !isDigit : text[i] != shape[i])) {
            return std::nullopt;
        }
        if (isDigit) {
            numbers.at(index) = 10 * numbers.at(index) + (text[i] - '0');
        } else {
            ++index;
        }
    }
    text.remove_prefix(shape.size());
    return numbers;
}

bool isEnd(std::string_view text) {
    return text.empty() || ends.find(text.front()) != std::string_view::npos;
}

/// Returns the days from the beginning of 1970 to the beginning of the month; 13 is January of the next year.
long long daysTo(int year, int month) {
    // Years that begin in March have their leap day at the end.
    const int months = 12 * year + month - 3;
    const int years = months / 12;
    return 365LL * years + years / 4 - years / 100 + years / 400 + (153 * (months % 12) + 2) / 5 - 719468;
}

/// Removes yyyy-mm-dd. Returns the days since the beginning of 1970.
std::optional<long long> takeDate(std::string_view& text) {
    const auto [year, month, day] = take(text, "0000-00-00").value_or(Numbers{});
    if (year < 1 || month < 1 || month > 12 || day < 1 || day > daysTo(year, month + 1) - daysTo(year, month)) {
        return std::nullopt;
    }
    return daysTo(year, month) + day - 1;
}

/// Removes h:mm:ss or hh:mm:ss. Returns the seconds since midnight.
std::optional<int> takeClock(std::string_view& text) {
    std::optional<Numbers> clock = take(text, "00:00:00");
    clock = clock ? clock : take(text, "0:00:00");
    // A minute with a leap second has a second 60.
    if (!clock || (*clock)[0] > 23 || (*clock)[1] > 59 || (*clock)[2] > 60) {
        return std::nullopt;
    }
    return 3600 * (*clock)[0] + 60 * (*clock)[1] + (*clock)[2];
}

/// Removes and returns "." and the digits after it; an empty text if there are none.
std::string takeFraction(std::string_view& text) {
    std::string_view rest = text;
    std::string fraction(text.substr(0, take(rest, ".0") ? text.find_first_not_of(digits, 1) : 0));
    text.remove_prefix(fraction.size());
    return fraction;
}

/// Removes Z, +hh:mm, +hhmm or +hh. Returns the seconds that the offset is ahead of UTC; 0 if there is no offset.
std::optional<int> takeOffset(std::string_view& text) {
    const bool east = take(text, "+").has_value();
    if (!east && !take(text, "-")) {
        take(text, "Z");
        return 0;
    }
    const std::optional<Numbers> hours = take(text, "00");
    const bool hasMinutes = take(text, ":") || !isEnd(text);
    const std::optional<Numbers> minutes = hasMinutes ? take(text, "00") : Numbers{};
    if (!hours || hours->front() > 23 || !minutes || minutes->front() > 59) {
        return std::nullopt;
    }
    const int seconds = 3600 * hours->front() + 60 * minutes->front();
    return east ? seconds : -seconds;
}

std::optional<double> decimalNumber(const std::string& text) {
    const auto number = Kelpkit::readValue(text, Kelpkit::Type<double>{});
    return number ? std::optional(number.value()) : std::nullopt;
}

/// Reads a clock time, alone or after a date that is `days` days after the beginning of 1970.
std::optional<double> readClock(std::string_view text, std::optional<long long> days) {
    const std::optional<int> clock = takeClock(text);
    const std::string fraction = takeFraction(text);
    const std::optional<int> offset = days ? takeOffset(text) : 0;
    take(text, ":");  // as in "12:34:56: message"
    if (!clock || !offset || !isEnd(text)) {
        return std::nullopt;
    }
    const long long seconds = 86400 * days.value_or(0) + *clock - *offset;
    // The double closest to the whole text compares equal to the same text in a range.
    return seconds < 0 ? static_cast<double>(seconds) + decimalNumber("0" + fraction).value_or(0.0)
                       : decimalNumber(std::to_string(seconds) + fraction);
}

std::optional<double> readDate(std::string_view text) {
    const std::optional<long long> days = takeDate(text);
    if (!days) {
        return std::nullopt;
    }
    std::string_view clock = text;
    if (take(clock, "T") || take(clock, " ")) {
        const std::optional<double> time = readClock(clock, days);
        // A date with an invalid clock time after it is not midnight.
        if (time || clock.substr(0, clock.find_first_of(ends)).find(':') != std::string_view::npos) {
            return time;
        }
    }
    return isEnd(text) ? std::optional<double>(static_cast<double>(86400 * *days)) : std::nullopt;
}

}  // namespace

std::optional<double> timeOf(std::string_view line) {
    std::string_view text = line.substr(0, maxBytes);
    const auto skipBlanks = [&text] { text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size())); };
    skipBlanks();
    take(text, "[");
    skipBlanks();
    if (const std::optional<double> date = readDate(text)) {
        return date;
    }
    if (const std::optional<double> clock = readClock(text, std::nullopt)) {
        return clock;
    }
    return decimalNumber(std::string(text.substr(0, text.find_first_of(ends))));
}

}  // namespace slice
