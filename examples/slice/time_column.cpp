#include "time_column.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "../common/numbers.h"

namespace slice {

namespace {

/// The longest time, including the blanks before it.
constexpr std::size_t maxBytes = 100;

constexpr std::string_view blanks = " \t";
constexpr std::string_view ends = " \t\r,;]";

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Removes `count` digits from the beginning of the text. Returns their number; none if there are fewer digits or the number
/// exceeds `largest`.
std::optional<int> takeDigits(std::string_view& text, std::size_t count, int largest) {
    if (text.size() < count || !std::all_of(text.begin(), text.begin() + count, isDigit)) {
        return std::nullopt;
    }
    int number = 0;
    for (const char digit : text.substr(0, count)) {
        number = 10 * number + (digit - '0');
    }
    text.remove_prefix(count);
    return number <= largest ? std::optional<int>(number) : std::nullopt;
}

bool take(std::string_view& text, char character) {
    if (text.empty() || text.front() != character) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

bool isEnd(std::string_view text) {
    return text.empty() || ends.find(text.front()) != std::string_view::npos;
}

int daysOfMonth(int year, int month) {
    constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : days.at(static_cast<std::size_t>(month - 1));
}

/// Returns the days from the beginning of 1970 to the beginning of the year; negative before 1970.
long long daysToYear(int year) {
    const auto leapYears = [](int before) { return before / 4 - before / 100 + before / 400; };
    return 365LL * (year - 1970) + leapYears(year - 1) - leapYears(1969);
}

/// Removes yyyy-mm-dd. Returns the days since the beginning of 1970.
std::optional<long long> takeDate(std::string_view& text) {
    const std::optional<int> year = takeDigits(text, 4, 9999);
    const bool firstDash = take(text, '-');
    const std::optional<int> month = takeDigits(text, 2, 12);
    const bool secondDash = take(text, '-');
    const std::optional<int> day = takeDigits(text, 2, 31);
    if (!year || !firstDash || !month || !secondDash || !day || *year < 1 || *month < 1 || *day < 1 ||
        *day > daysOfMonth(*year, *month)) {
        return std::nullopt;
    }
    long long days = daysToYear(*year) + *day - 1;
    for (int before = 1; before < *month; ++before) {
        days += daysOfMonth(*year, before);
    }
    return days;
}

/// Removes h:mm:ss or hh:mm:ss. Returns the seconds since midnight.
std::optional<int> takeClock(std::string_view& text) {
    const std::size_t hourDigits = text.size() > 1 && text[1] == ':' ? 1 : 2;
    const std::optional<int> hours = takeDigits(text, hourDigits, 23);
    const bool firstColon = take(text, ':');
    const std::optional<int> minutes = takeDigits(text, 2, 59);
    const bool secondColon = take(text, ':');
    const std::optional<int> seconds = takeDigits(text, 2, 60);  // 60 is a leap second
    if (!hours || !firstColon || !minutes || !secondColon || !seconds) {
        return std::nullopt;
    }
    return 3600 * *hours + 60 * *minutes + *seconds;
}

/// Removes and returns "." and the digits after it. Returns an empty text if there is no ".", none if it has no digits.
std::optional<std::string> takeFraction(std::string_view& text) {
    std::string fraction;
    if (take(text, '.')) {
        const auto length =
            static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
        if (length == 0) {
            return std::nullopt;
        }
        fraction = "." + std::string(text.substr(0, length));
        text.remove_prefix(length);
    }
    return fraction;
}

/// Removes Z, +hh:mm, +hhmm or +hh. Returns the seconds that the offset is ahead of UTC; 0 if there is no offset.
std::optional<int> takeOffset(std::string_view& text) {
    const bool east = !text.empty() && text.front() == '+';
    const bool west = !text.empty() && text.front() == '-';
    if (!east && !west) {
        take(text, 'Z');
        return 0;
    }
    text.remove_prefix(1);
    const std::optional<int> hours = takeDigits(text, 2, 23);
    const bool colon = take(text, ':');
    const bool hasMinutes = colon || !isEnd(text);
    const std::optional<int> minutes = hasMinutes ? takeDigits(text, 2, 59) : 0;
    if (!hours || !minutes) {
        return std::nullopt;
    }
    const int seconds = 3600 * *hours + 60 * *minutes;
    return east ? seconds : -seconds;
}

/// Returns the double closest to seconds plus fraction, which compares equal to the same text in a range.
double withFraction(long long seconds, const std::string& fraction) {
    const auto whole = static_cast<double>(seconds);
    if (fraction.empty()) {
        return whole;
    }
    if (seconds < 0) {
        return whole + common::decimalNumber("0" + fraction).value_or(0.0);
    }
    return common::decimalNumber(std::to_string(seconds) + fraction).value_or(whole);
}

/// Reads a clock time, alone or after a date that is `days` days after the beginning of 1970.
std::optional<double> readClock(std::string_view text, std::optional<long long> days) {
    const std::optional<int> clock = takeClock(text);
    const std::optional<std::string> fraction = takeFraction(text);
    const std::optional<int> offset = days ? takeOffset(text) : 0;
    take(text, ':');  // as in "12:34:56: message"
    if (!clock || !fraction || !offset || !isEnd(text)) {
        return std::nullopt;
    }
    return withFraction(86400 * days.value_or(0) + *clock - *offset, *fraction);
}

std::optional<double> readDate(std::string_view text) {
    const std::optional<long long> days = takeDate(text);
    if (!days) {
        return std::nullopt;
    }
    std::string_view clock = text;
    if (take(clock, 'T') || take(clock, ' ')) {
        const std::optional<double> time = readClock(clock, days);
        // A date with an invalid clock time after it is not midnight.
        if (time || clock.substr(0, clock.find_first_of(ends)).find(':') != std::string_view::npos) {
            return time;
        }
    }
    return isEnd(text) ? std::optional<double>(static_cast<double>(86400 * *days)) : std::nullopt;
}

std::optional<double> readNumber(std::string_view text) {
    const std::optional<double> number = common::decimalNumber(std::string(text.substr(0, text.find_first_of(ends))));
    return number && std::isfinite(*number) ? number : std::nullopt;
}

}  // namespace

std::optional<double> timeOf(std::string_view line) {
    std::string_view text = line.substr(0, maxBytes);
    const auto skipBlanks = [&text] { text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size())); };
    skipBlanks();
    take(text, '[');
    skipBlanks();
    if (const std::optional<double> date = readDate(text)) {
        return date;
    }
    if (const std::optional<double> clock = readClock(text, std::nullopt)) {
        return clock;
    }
    return readNumber(text);
}

}  // namespace slice
