#include "document_date.h"

#include <kelpkit/Values.h>

#include <array>
#include <stdexcept>

namespace Kelpkit::programs {

namespace {

struct Month {
    const char* name;
    int days;
};
constexpr std::array<Month, 12> months{{{"January", 31},
                                        {"February", 28},
                                        {"March", 31},
                                        {"April", 30},
                                        {"May", 31},
                                        {"June", 30},
                                        {"July", 31},
                                        {"August", 31},
                                        {"September", 30},
                                        {"October", 31},
                                        {"November", 30},
                                        {"December", 31}}};
constexpr long long endOfYear9999 = 253'402'300'799;

bool isLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// Takes months of the year off the days for as long as there are more days than those of the month.
const char* takeMonths(int year, int& days) {
    for (const Month& month : months) {
        const int length = month.days + (&month == &months[1] && isLeapYear(year) ? 1 : 0);
        if (days < length) {
            return month.name;
        }
        days -= length;
    }
    return months.back().name;
}

/// Returns the date of a day of the years 1970 to 9999, counted from 0. The gmtime() of Windows ends with the year 3000.
std::string dateOf(int days) {
    int year = 1970;
    for (int length = 365; days >= length; length = isLeapYear(year) ? 366 : 365) {
        days -= length;
        ++year;
    }
    const std::string month = takeMonths(year, days);
    return month + " " + std::to_string(days + 1) + ", " + std::to_string(year);
}

}  // namespace

std::string documentDate(const char* epoch, std::time_t now) {
    long long time = now;
    if (epoch != nullptr && *epoch != '\0') {
        const Read<long long> read = readValue(epoch, Type<long long>{}, between(0LL, endOfYear9999));
        if (!read) {
            throw std::runtime_error("SOURCE_DATE_EPOCH=" + std::string(epoch) + ": not " + read.expectation());
        }
        time = read.value();
    }
    if (time < 0 || time > endOfYear9999) {
        throw std::runtime_error("the clock shows no date from 1970 to 9999");
    }
    constexpr long long secondsOfDay = 86'400;
    return dateOf(static_cast<int>(time / secondsOfDay));
}

}  // namespace Kelpkit::programs
