#include "document_date.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using Kelpkit::programs::documentDate;

TEST(DocumentDate, Accepted) {
    const std::pair<const char*, const char*> table[] = {
        {nullptr, "November 21, 2026"},       {"", "November 21, 2026"},          {"0", "January 1, 1970"},
        {"86399", "January 1, 1970"},         {"86400", "January 2, 1970"},       {"951782400", "February 29, 2000"},
        {"951868800", "March 1, 2000"},       {"983318400", "February 28, 2001"}, {"983404800", "March 1, 2001"},
        {"4107456000", "February 28, 2100"},  {"4107542400", "March 1, 2100"},    {"1767225599", "December 31, 2025"},
        {"32535215999", "December 31, 3000"}, {"32535216000", "January 1, 3001"}, {"253402300799", "December 31, 9999"},
    };
    for (const auto& [epoch, date] : table) {
        EXPECT_EQ(documentDate(epoch, 1795305599), date);
    }
}

TEST(DocumentDate, ClockRefused) {
    for (const long long now : {-1LL, 253'402'300'800LL}) {
        try {
            ADD_FAILURE() << documentDate(nullptr, now);
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "the clock shows no date from 1970 to 9999");
        }
    }
}

TEST(DocumentDate, Refused) {
    for (const char* epoch : {"-1", " 1", "1x", "now", "253402300800", "99999999999999999999"}) {
        try {
            ADD_FAILURE() << documentDate(epoch, 0);
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(),
                      "SOURCE_DATE_EPOCH=" + std::string(epoch) + ": not a whole number from 0 to 253402300799");
        }
    }
}

}  // namespace
