#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "progress_test.h"

namespace {

class ProgressBar : public ProgressTest {};

TEST_F(ProgressBar, DrawsALineThatTheNextOneOverwrites) {
    clock(1047.5);
    EXPECT_EQ(drawBar(5, 100, 20, "Reading", 0.0), Drawn(0, "Reading  5.0% #                  |\r"));
    EXPECT_EQ(drawBar(5, 100, 20, "Reading", 1000.0),
              Drawn(0, "Reading  5.0% #                  | time left: 19 mins  \r"));
    clock(1060.0);
    EXPECT_EQ(drawBar(100, 100, 20, "Reading", 1000.0),
              Drawn(0, "Reading100.0% ##################### done in: 1.0 mins  \r"));
    EXPECT_EQ(drawBar(100, 100, 20, "Reading", -1.0), Drawn(0, "Reading100.0% #####################\r"));
}

TEST_F(ProgressBar, TreatsANullLabelAsEmpty) {
    EXPECT_EQ(drawBar(1, 2, 4, nullptr, 0.0), Drawn(0, " 50.0% ## |\r"));
}

TEST_F(ProgressBar, AcceptsZeroAndNotANumber) {
    EXPECT_EQ(drawBar(0.0, 2, 4, "x", 0.0), Drawn(0, "x  0.0%    |\r"));
    EXPECT_EQ(drawBar(-0.0, 2, 4, "x", 0.0), Drawn(0, "x  -0.0%    |\r"));
    const Drawn notANumber = drawBar(std::numeric_limits<double>::quiet_NaN(), 2, 0, "x", 0.0);
    EXPECT_EQ(notANumber.first, 0);
    EXPECT_EQ(notANumber.second.substr(0, 12), "x100.0%     ");
}

TEST_F(ProgressBar, EndsEveryLineWithACarriageReturnWithin512Bytes) {
    for (std::size_t length = 0; length <= 600; ++length) {
        const std::string label(length, 'x');
        const std::string whole = label + " 50.0% ## | time left: 8 secs  ";
        clock(1010.0);
        EXPECT_EQ(drawBar(1, 2, 4, label.c_str(), 1000.0), Drawn(0, whole.substr(0, 511) + "\r")) << length;
    }
}

TEST_F(ProgressBar, IsCutWhenItIsEndless) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const struct {
        const char* name;
        double value;
        double total;
        int width;
        std::string expected;
    } cases[] = {
        {"total 0", 1, 0, 20, "x100.0% " + std::string(503, '#')},
        {"nothing of nothing", 0, 0, 20, "x100.0% " + std::string(503, ' ')},
        {"total 0, width 0", 1, 0, 0, "x100.0% " + std::string(503, ' ')},
        {"total 0, width 1", 1, 0, 1, "x100.0% " + std::string(503, '#')},
        {"infinite value", infinity, 1, 20, "x100.0% " + std::string(503, '#')},
        {"largest width", 1, 2, 2147483647, "x 50.0% " + std::string(503, '#')},
        {"largest width, nothing done", 0, 2, 2147483647, "x  0.0% " + std::string(503, ' ')},
        {"least width", 1, 2, -2147483647 - 1, "x 50.0% |"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(drawBar(c.value, c.total, c.width, "x", 0.0), Drawn(0, c.expected + "\r")) << c.name;
    }
}

TEST_F(ProgressBar, ReportsThatStandardOutputFails) {
    int running = 0;
    int finished = 0;
    {
        StandardOutputFile output;
        output.fail();
        running = KELP_progress(1, 2, 4, "x", 0.0);
        finished = KELP_progress(2, 2, 4, "x", 1000.0);
    }
    EXPECT_EQ(running, -1);
    EXPECT_EQ(finished, -1);
}

TEST_F(ProgressBar, NeitherReadsNorChangesTheProcessWideDisplay) {
    std::memset(&KELP_GlobalProgress, 'x', sizeof KELP_GlobalProgress);
    const auto before = bytesOf(KELP_GlobalProgress);
    EXPECT_EQ(drawBar(1, 2, 4, "label", 0.0), Drawn(0, "label 50.0% ## |\r"));
    EXPECT_EQ(drawBar(2, 2, 4, "label", 1000.0), Drawn(0, "label100.0% ##### done in: 0.0 secs  \r"));
    EXPECT_EQ(bytesOf(KELP_GlobalProgress), before);
}

TEST_F(ProgressBar, MovesNoCursorAndNeverPauses) {
    drawBar(1, 2, 4, "x", 1000.0);
    drawBar(2, 2, 4, "x", 1000.0);
    EXPECT_TRUE(fake_platform::state().rewoundLines.empty());
    EXPECT_TRUE(fake_platform::state().sleepsMilliseconds.empty());
}

// The clock, sleep and the cursor.

TEST_F(ProgressBar, ReturnsTheClock) {
    for (const double seconds : {0.0, 12.5, 1e15}) {
        clock(seconds);
        EXPECT_EQ(KELP_time_stamp(), seconds);
    }
}

TEST_F(ProgressBar, Sleeps) {
    clock(1000.0);
    for (const unsigned int milliseconds : {0U, 75U, 4294967295U}) {
        KELP_sleep(milliseconds);
    }
    EXPECT_EQ(fake_platform::state().sleepsMilliseconds, (std::vector<unsigned int>{0, 75, 4294967295U}));
}

TEST_F(ProgressBar, MovesTheCursor) {
    for (const int result : {-1, 0, 1, 7}) {
        fake_platform::state().rewindResult = result;
        EXPECT_EQ(KELP_rewind_cursor(6), result);
    }
    EXPECT_EQ(written([] {
                  KELP_rewind_cursor(0);
                  KELP_rewind_cursor(4294967295U);
              }),
              "");
    EXPECT_EQ(fake_platform::state().rewoundLines, (std::vector<unsigned int>{6, 6, 6, 6, 0, 4294967295U}));
}

}  // namespace
