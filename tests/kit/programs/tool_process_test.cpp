#include "tool_process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace {

using Kelpkit::programs::readHelp;
using Kelpkit::programs::RunLimits;

const std::string program = KELPKIT_HOSTILE_TOOL;

/// Returns what is wrong, without the name of the program in front.
std::string refusal(const std::string& name, const RunLimits& limits) {
    try {
        readHelp(program, name, limits);
        return "";
    } catch (const std::exception& error) {
        const std::string text = error.what();
        return text.substr(0, program.size()) == program ? text.substr(program.size() + 1) : text;
    }
}

TEST(ToolProcess, ToolsThatDoNotEnd) {
    using Clock = std::chrono::steady_clock;
    const RunLimits limits{std::chrono::milliseconds(400), 1'000'000};
    for (const char* name : {"sleeping", "late"}) {
        const Clock::time_point start = Clock::now();
        EXPECT_EQ(refusal(name, limits), "did not finish within 0.4 seconds") << name;
        EXPECT_GE(Clock::now() - start, limits.time) << name;
        EXPECT_LT(Clock::now() - start, std::chrono::minutes(1)) << name;
    }
}

TEST(ToolProcess, NumberOfBytes) {
    const std::size_t size = readHelp(program, "plain").size();
    const std::chrono::seconds time(60);
    EXPECT_EQ(refusal("plain", {time, size}), "");
    EXPECT_EQ(refusal("plain", {time, size - 1}), "prints more than " + std::to_string(size - 1) + " bytes");
    EXPECT_EQ(refusal("endless", {time, 100'000}), "prints more than 100000 bytes");
    EXPECT_EQ(refusal("endless", {time, 0}), "prints more than 0 bytes");
}

TEST(ToolProcess, DefaultLimits) {
    EXPECT_EQ(RunLimits().time, std::chrono::seconds(10));
    EXPECT_EQ(RunLimits().bytes, 1'000'000U);
}

}  // namespace
