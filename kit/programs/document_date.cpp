#include "document_date.h"

#include <kelpkit/Values.h>

#include <array>
#include <stdexcept>

namespace Kelpkit::programs {

namespace {

constexpr std::array<const char*, 12> months{"January", "February", "March",     "April",   "May",      "June",
                                             "July",    "August",   "September", "October", "November", "December"};
constexpr long long endOfYear9999 = 253'402'300'799;

}  // namespace

std::string documentDate(const char* epoch, std::time_t now) {
    std::time_t time = now;
    if (epoch != nullptr && *epoch != '\0') {
        const Read<long long> read = readValue(epoch, Type<long long>{}, between(0LL, endOfYear9999));
        if (!read) {
            throw std::runtime_error("SOURCE_DATE_EPOCH=" + std::string(epoch) + ": not " + read.expectation());
        }
        time = static_cast<std::time_t>(read.value());
    }
    const std::tm* const date = std::gmtime(&time);
    if (date == nullptr) {
        throw std::runtime_error("the clock shows no date");
    }
    return std::string(months.at(static_cast<std::size_t>(date->tm_mon))) + " " + std::to_string(date->tm_mday) + ", " +
           std::to_string(date->tm_year + 1900);
}

}  // namespace Kelpkit::programs
