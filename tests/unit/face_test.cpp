#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "progress_test.h"

namespace {

using Events = std::vector<std::string>;

constexpr char openEyes[] =
    "     _____\n"
    "    /     \\         x\n"
    "   /  . .  \\\n"
    "   >       <        50.0% ## |  \n"
    "   \\  ---  /\n"
    "    \\_____/         time remaining: 8 secs      \n";
constexpr char closedEyes[] =
    "     _____\n"
    "    /     \\         x\n"
    "   /  _ _  \\\n"
    "   >       <        50.0% ## |  \n"
    "   \\  ---  /\n"
    "    \\_____/         time remaining: 8 secs      \n";
constexpr char happyCheer[] =
    "     _____\n"
    "    /     \\         x\n"
    "   /  ^ ^  \\\n"
    "   > \\   / <       100.0%\n"
    "   \\  \\_/  /\n"
    "    \\_____/         time spent:  10 secs      \n";
constexpr char closedCheer[] =
    "     _____\n"
    "    /     \\         x\n"
    "   /  _ _  \\\n"
    "   > \\   / <       100.0%\n"
    "   \\  \\_/  /\n"
    "    \\_____/         time spent:  10 secs      \n";

/// A display set up at 1000 s with a total of 2. Records every pause and every cursor movement, each after the text that
/// had reached standard output by then.
class Face : public ProgressTest {
protected:
    Face() {
        KELP_progress_global_init(2.0, 4, "x", 1);
        fake_platform::state().onSleep = [this](unsigned int milliseconds) {
            note("pause " + std::to_string(milliseconds));
        };
        fake_platform::state().onRewind = [this](unsigned int lines) { note("up " + std::to_string(lines)); };
    }

    /// Returns what a call at `now` does. The last event is "end", after the text written since the last pause or movement.
    Events eventsOf(double value, double now) {
        clock(now);
        events.clear();
        output.emplace();
        result = KELP_progress_smile(value);
        note("end");
        output.reset();
        return events;
    }

    /// Returns the result of a call at `now` whose output fails.
    int resultOnFailingOutput(double value, double now) {
        clock(now);
        output.emplace();
        output->fail();
        result = KELP_progress_smile(value);
        output.reset();
        return result;
    }

    int result = 0;

private:
    void note(const std::string& what) {
        const std::string text = output->arrived();
        if (!text.empty()) {
            events.push_back(text);
        }
        events.push_back(what);
    }

    std::optional<StandardOutputFile> output;  ///< set only during a call, see ProgressTest::written
    Events events;
};

// Frames.

TEST_F(Face, DrawsItsFrameAndReturnsToItsTop) {
    KELP_GlobalProgress.last_blink = 1008.0;
    EXPECT_EQ(eventsOf(1.0, 1010.0), (Events{openEyes, "up 6", "end"}));
    EXPECT_EQ(KELP_GlobalProgress.last_blink, 1008.0);
}

TEST_F(Face, ClosesItsEyesFirstWhenItBlinks) {
    EXPECT_EQ(eventsOf(1.0, 1010.0), (Events{closedEyes, "pause 75", "up 6", openEyes, "up 6", "end"}));
    EXPECT_EQ(KELP_GlobalProgress.last_blink, 1010.0);
    EXPECT_EQ(fake_platform::state().seconds, 1010.075);
}

TEST_F(Face, CheersInThreeFramesAndStays) {
    EXPECT_EQ(eventsOf(2.0, 1010.0),
              (Events{happyCheer, "pause 150", "up 6", closedCheer, "pause 150", "up 6", happyCheer, "end"}));
}

TEST_F(Face, CheersUnlessTheValueIsBelowTheTotal) {
    const Events cheer = {happyCheer, "pause 150", "up 6", closedCheer, "pause 150", "up 6", happyCheer, "end"};
    EXPECT_EQ(eventsOf(2.0000000000000004, 1010.0), cheer);
    EXPECT_EQ(eventsOf(500.0, 1010.0), cheer);
    EXPECT_EQ(eventsOf(std::numeric_limits<double>::infinity(), 1010.0), cheer);
    EXPECT_EQ(eventsOf(std::numeric_limits<double>::quiet_NaN(), 1010.0), cheer);
    KELP_GlobalProgress.total = 0.0;
    EXPECT_EQ(eventsOf(0.0, 1010.0), cheer) << "nothing of nothing";
    EXPECT_EQ(eventsOf(1.0, 1010.0), cheer) << "something of nothing";
    KELP_GlobalProgress.total = -2.0;
    EXPECT_EQ(eventsOf(-2.0, 1010.0), cheer) << "negative total";
}

TEST_F(Face, DrawsNegativeProgress) {
    KELP_GlobalProgress.last_blink = 1008.0;
    EXPECT_EQ(eventsOf(-1.0, 1000.0), (Events{"     _____\n"
                                              "    /     \\         x\n"
                                              "   /  * *  \\\n"
                                              "   >   _   <        -50.0%      |  \n"
                                              "   \\  / \\  /\n"
                                              "    \\_____/         time remaining: 0 secs      \n",
                                              "up 6", "end"}));
}

TEST_F(Face, ShowsTheTimeAtWhichItWasCalled) {
    const Events cheer = eventsOf(2.0, 1059.9);
    EXPECT_NE(cheer.front().find("time spent:  59 secs      \n"), std::string::npos);
    EXPECT_EQ(cheer.at(6), cheer.front()) << "after 0.3 s of cheering";
}

TEST_F(Face, ReturnsTheCharactersOfItsLastFrame) {
    eventsOf(1.0, 1010.0);
    EXPECT_EQ(result, 141);
    eventsOf(1.0, 1011.0);
    EXPECT_EQ(result, 141) << "without a blink";
    eventsOf(2.0, 1010.0);
    EXPECT_EQ(result, 132);
    KELP_progress_global_set_text("eleven more", 20);
    eventsOf(2.0, 1010.0);
    EXPECT_EQ(result, 142);
}

TEST_F(Face, ReportsThatStandardOutputFails) {
    EXPECT_EQ(resultOnFailingOutput(1.0, 1010.0), -1) << "with a blink";
    EXPECT_EQ(resultOnFailingOutput(1.0, 1010.0), -1);
    EXPECT_EQ(resultOnFailingOutput(2.0, 1010.0), -1);
}

TEST_F(Face, DrawsWhetherTheCursorMovesOrNot) {
    KELP_GlobalProgress.last_blink = 1008.0;
    for (const int moved : {-1, 0, 1}) {
        fake_platform::state().rewindResult = moved;
        EXPECT_EQ(eventsOf(1.0, 1010.0), (Events{openEyes, "up 6", "end"})) << moved;
        EXPECT_EQ(result, 141) << moved;
    }
}

TEST_F(Face, ChangesOnlyTheLastBlinkOfTheDisplay) {
    KELP_GlobalProgress.smile = 0;
    for (const double value : {1.0, 2.0}) {
        KELP_GlobalProgress.last_blink = 99.0;
        const auto before = bytesOf(KELP_GlobalProgress);
        eventsOf(value, 1010.0);
        EXPECT_EQ(KELP_GlobalProgress.last_blink, 1010.0) << value;
        KELP_GlobalProgress.last_blink = 99.0;
        EXPECT_EQ(bytesOf(KELP_GlobalProgress), before) << value;
    }
}

// Blinks.

class FaceBlink : public Face {
protected:
    /// Returns whether a call at `now` blinks.
    bool blinks(double now) {
        fake_platform::state().sleepsMilliseconds.clear();
        eventsOf(1.0, now);
        return fake_platform::state().sleepsMilliseconds == std::vector<unsigned int>{75};
    }
};

TEST_F(FaceBlink, BlinksWhenTheLastBlinkIsMoreThanFourSecondsAgo) {
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

// The monotonic clock may start at 0, as on a system that has just booted.
TEST_F(FaceBlink, TheFirstCallBlinksOnceTheClockIsPastFourSeconds) {
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

TEST_F(FaceBlink, BlinksAtMostOnceInFourSecondsOfALongRun) {
    // Ten minutes, four calls a second: every 17th call is the first that is more than 4 s after a blink.
    for (int call = 0; call < 2400; ++call) {
        EXPECT_EQ(blinks(1000.0 + call * 0.25), call % 17 == 0) << call;
    }
}

TEST_F(FaceBlink, ShowsOneTimeInBothFrames) {
    const std::string line = "time remaining: 8 secs ";
    const Events blink = eventsOf(1.0, 1010.55);
    EXPECT_EQ(fake_platform::state().sleepsMilliseconds, std::vector<unsigned int>{75});
    ASSERT_EQ(blink.size(), 6U) << "a frame, a pause, a movement, a frame, a movement, the end";
    EXPECT_NE(blink[0].find(line), std::string::npos) << blink[0];
    EXPECT_NE(blink[3].find(line), std::string::npos) << blink[3];
    const Events later = eventsOf(1.0, 1010.63);
    EXPECT_NE(later[0].find("time remaining: 9 secs "), std::string::npos) << "9 s are left when the blink ends";
}

TEST_F(FaceBlink, CountsItsCheerAsABlinkWhenOneIsDue) {
    KELP_GlobalProgress.last_blink = 1006.0;
    eventsOf(2.0, 1010.0);
    EXPECT_EQ(KELP_GlobalProgress.last_blink, 1006.0) << "4 s are not more than 4 s";
    eventsOf(2.0, 1010.0000000000001);
    EXPECT_EQ(KELP_GlobalProgress.last_blink, 1010.0000000000001);
    EXPECT_FALSE(blinks(1014.0));
    EXPECT_TRUE(blinks(1014.0000000000002));
}

}  // namespace
