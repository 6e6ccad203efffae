#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <locale>
#include <string>
#include <thread>
#include <vector>

#include "locale_facets.h"
#include "scoped_locale.h"

namespace {

struct Values {
    int count = 0;
    double ratio = 0.0;
    float part = 0.0F;
    Kelp::StringDouble pair;

    bool operator==(const Values& other) const {
        return count == other.count && ratio == other.ratio && part == other.part && pair.label == other.pair.label &&
               pair.value == other.pair.value;
    }
};

/// Converts the texts repeatedly in four threads at the same time and expects the same values in each.
void expectFromEveryThread(const Values& expected, const std::string& count, const std::string& ratio) {
    std::vector<Values> seen(4);
    std::vector<std::thread> threads;
    threads.reserve(seen.size());
    for (Values& values : seen) {
        threads.emplace_back([&] {
            for (int i = 0; i < 200; ++i) {
                values = Values();
                Kelp::stringToValue(values.count, count);
                Kelp::stringToValue(values.ratio, ratio);
                Kelp::stringToValue(values.part, ratio);
                Kelp::stringToValue(values.pair, "label:" + ratio);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const Values& values : seen) {
        EXPECT_TRUE(values == expected);
    }
}

TEST(ValueThreads, ReadUnderTheClassicLocale) {
    expectFromEveryThread({12345, 1.7976931348623157e308, 3.40282347e38F, {"label", 1.7976931348623157e308}}, "12345",
                          "1.5e999");
}

TEST(ValueThreads, ReadUnderAnotherLocale) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    expectFromEveryThread({12345, 1234.5, 1234.5F, {"label", 1234.5}}, "12.345", "1.234,5");
}

}  // namespace
