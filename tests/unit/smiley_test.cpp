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

/// A display set up at 1000 s with a total of 2. Every pause and every move of the cursor is noted together with the text
/// that had reached standard output before it.
class Smiley : public ProgressTest {
protected:
    Smiley() {
        KELP_progress_global_init(2.0, 4, "x", 1);
        fake_platform::state().onSleep = [this](unsigned int milliseconds) {
            note("pause " + std::to_string(milliseconds));
        };
        fake_platform::state().onRewind = [this](unsigned int lines) { note("up " + std::to_string(lines)); };
    }

    /// What a call at `now` does, ending with what it wrote after the last pause or move.
    Events eventsOf(double value, double now) {
        clock(now);
        events.clear();
        output.emplace();
        result = KELP_progress_smile(value);
        note("end");
        output.reset();
        return events;
    }

    /// The same with a standard output that fails.
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

    std::optional<StandardOutputFile> output;  ///< only during a call, see ProgressTest::written
    Events events;
};

TEST_F(Smiley, DrawsItsFrameAndReturnsToItsTop) {
    KELP_GlobalProgress.last_blink = 1008.0;
    EXPECT_EQ(eventsOf(1.0, 1010.0), (Events{openEyes, "up 6", "end"}));
    EXPECT_EQ(KELP_GlobalProgress.last_blink, 1008.0);
}

TEST_F(Smiley, ClosesItsEyesFirstWhenItBlinks) {
    EXPECT_EQ(eventsOf(1.0, 1010.0), (Events{closedEyes, "pause 75", "up 6", openEyes, "up 6", "end"}));
    EXPECT_EQ(KELP_GlobalProgress.last_blink, 1010.0);
    EXPECT_EQ(fake_platform::state().seconds, 1010.075);
}

TEST_F(Smiley, CheersInThreeFramesAndStays) {
    EXPECT_EQ(eventsOf(2.0, 1010.0),
              (Events{happyCheer, "pause 150", "up 6", closedCheer, "pause 150", "up 6", happyCheer, "end"}));
}

TEST_F(Smiley, CheersForWhateverIsNotBelowTheWhole) {
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

TEST_F(Smiley, DrawsNegativeProgress) {
    KELP_GlobalProgress.last_blink = 1008.0;
    EXPECT_EQ(eventsOf(-1.0, 1000.0), (Events{"     _____\n"
                                              "    /     \\         x\n"
                                              "   /  * *  \\\n"
                                              "   >   _   <        -50.0%      |  \n"
                                              "   \\  / \\  /\n"
                                              "    \\_____/         time remaining: 0 secs      \n",
                                              "up 6", "end"}));
}

TEST_F(Smiley, ShowsTheTimeAtWhichItWasCalled) {
    const Events cheer = eventsOf(2.0, 1059.9);
    EXPECT_NE(cheer.front().find("time spent:  59 secs      \n"), std::string::npos);
    EXPECT_EQ(cheer.at(6), cheer.front()) << "after 0.3 s of cheering";
}

TEST_F(Smiley, ReturnsTheCharactersOfItsLastFrame) {
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

TEST_F(Smiley, TellsWhenStandardOutputFails) {
    EXPECT_EQ(resultOnFailingOutput(1.0, 1010.0), -1) << "with a blink";
    EXPECT_EQ(resultOnFailingOutput(1.0, 1010.0), -1);
    EXPECT_EQ(resultOnFailingOutput(2.0, 1010.0), -1);
}

TEST_F(Smiley, DrawsWhetherTheCursorMovesOrNot) {
    KELP_GlobalProgress.last_blink = 1008.0;
    for (const int moved : {-1, 0, 1}) {
        fake_platform::state().rewindResult = moved;
        EXPECT_EQ(eventsOf(1.0, 1010.0), (Events{openEyes, "up 6", "end"})) << moved;
        EXPECT_EQ(result, 141) << moved;
    }
}

TEST_F(Smiley, WritesNothingButTheLastBlinkIntoTheDisplay) {
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

}  // namespace
