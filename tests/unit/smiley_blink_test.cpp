#include <vector>

#include "progress_test.h"

namespace {

class SmileyBlink : public ProgressTest {
protected:
    SmileyBlink() {
        KELP_progress_global_init(2.0, 4, "x", 1);
    }

    static void callAt(double now, double value) {
        clock(now);
        fake_platform::state().sleepsMilliseconds.clear();
        written([value] { KELP_progress_smile(value); });
    }

    /// What a call at `now` draws, for work that began at 1000.
    static std::string framesAt(double now) {
        KELP_GlobalProgress.start_time = 1000.0;
        clock(now);
        return written([] { KELP_progress_smile(1.0); });
    }

    /// Whether a call at `now` blinks.
    static bool blinks(double now) {
        callAt(now, 1.0);
        return fake_platform::state().sleepsMilliseconds == std::vector<unsigned int>{75};
    }
};

TEST_F(SmileyBlink, BlinksWhenTheLastBlinkIsMoreThanFourSecondsAgo) {
    const struct {
        double last;
        double now;
        bool blinks;
    } cases[] = {
        {0.0, 1000.0, true},
        {1000.0, 1000.0, false},
        {1000.0, 1003.9999999999999, false},
        {1000.0, 1004.0, false},
        {1000.0, 1004.0000000000001, true},
        {1000.0, 990.0, false},
        {1000.0, 2000.0, true},
    };
    for (const auto& c : cases) {
        KELP_GlobalProgress.last_blink = c.last;
        EXPECT_EQ(blinks(c.now), c.blinks) << c.now - c.last << " s after " << c.last;
        EXPECT_EQ(KELP_GlobalProgress.last_blink, c.blinks ? c.now : c.last) << c.now - c.last << " s after " << c.last;
    }
}

// The clock may be that of a system which has just started.
TEST_F(SmileyBlink, TheFirstCallBlinksOnceTheClockIsPastFourSeconds) {
    for (const double now : {0.0, 3.9, 3.9999999999999996, 4.0}) {
        ASSERT_EQ(KELP_GlobalProgress.last_blink, 0.0);
        EXPECT_FALSE(blinks(now)) << now;
    }
    for (const double now : {4.000000000000001, 4.1, 1000.0}) {
        KELP_GlobalProgress.last_blink = 0.0;
        EXPECT_TRUE(blinks(now)) << now;
        EXPECT_EQ(KELP_GlobalProgress.last_blink, now);
    }
}

TEST_F(SmileyBlink, BlinksAtMostOnceInFourSecondsOfALongRun) {
    // Ten minutes, four calls a second: every 17th call is the first that is more than 4 s after a blink.
    for (int call = 0; call < 2400; ++call) {
        EXPECT_EQ(blinks(1000.0 + call * 0.25), call % 17 == 0) << call;
    }
}

TEST_F(SmileyBlink, ShowsOneTimeInBothFrames) {
    const std::string blink = framesAt(1010.55);
    EXPECT_EQ(fake_platform::state().sleepsMilliseconds, std::vector<unsigned int>{75});
    const std::string line = "time remaining: 8 secs ";
    const std::size_t first = blink.find(line);
    ASSERT_NE(first, std::string::npos) << blink;
    EXPECT_NE(blink.find(line, first + 1), std::string::npos) << blink;
    EXPECT_NE(framesAt(1010.63).find("time remaining: 9 secs "), std::string::npos) << "it is past when the blink ends";
}

TEST_F(SmileyBlink, CountsItsCheerAsABlinkWhenOneIsDue) {
    KELP_GlobalProgress.last_blink = 1006.0;
    callAt(1010.0, 2.0);
    EXPECT_EQ(KELP_GlobalProgress.last_blink, 1006.0) << "4 s are not more than 4 s";
    callAt(1010.0000000000001, 2.0);
    EXPECT_EQ(KELP_GlobalProgress.last_blink, 1010.0000000000001);
    EXPECT_FALSE(blinks(1014.0));
    EXPECT_TRUE(blinks(1014.0000000000002));
}

}  // namespace
