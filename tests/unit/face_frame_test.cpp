#include "console/face_frame.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

std::string runningFrame(const Kelp::FaceState& state, bool eyesClosed = false) {
    char buffer[Kelp::frameCapacity];
    Kelp::BoundedText frame(buffer, sizeof buffer);
    Kelp::appendRunningFrame(frame, state, eyesClosed);
    return std::string(frame.view());
}

std::string finishedFrame(const Kelp::FaceState& state, const char* eyes) {
    char buffer[Kelp::frameCapacity];
    Kelp::BoundedText frame(buffer, sizeof buffer);
    Kelp::appendFinishedFrame(frame, state, eyes);
    return std::string(frame.view());
}

TEST(FaceFrame, ShowsLabelPercentageBarAndTimeLeft) {
    EXPECT_EQ(runningFrame({25.0, 200.0, 20, "Reading files", 1000.0, 1010.0}),
              "     _____\n"
              "    /     \\         Reading files\n"
              "   /  * *  \\\n"
              "   >   _   <        12.5% ###                 |  \n"
              "   \\  / \\  /\n"
              "    \\_____/         time remaining: 1 mins      \n");
    EXPECT_EQ(runningFrame({1.0, 2.0, 4, "", 1000.0, 1147.5}),
              "     _____\n"
              "    /     \\         \n"
              "   /  . .  \\\n"
              "   >       <        50.0% ## |  \n"
              "   \\  ---  /\n"
              "    \\_____/         time remaining: 2 mins      \n");
}

TEST(FaceFrame, ClosesItsEyesAndKeepsTheRest) {
    EXPECT_EQ(runningFrame({25.0, 200.0, 20, "Reading files", 1000.0, 1010.0}, true),
              "     _____\n"
              "    /     \\         Reading files\n"
              "   /  _ _  \\\n"
              "   >   _   <        12.5% ###                 |  \n"
              "   \\  / \\  /\n"
              "    \\_____/         time remaining: 1 mins      \n");
}

TEST(FaceFrame, CheersWithoutABar) {
    EXPECT_EQ(finishedFrame({200.0, 200.0, 20, "Reading files", 1000.0, 1090.0}, "   /  ^ ^  \\\n"),
              "     _____\n"
              "    /     \\         Reading files\n"
              "   /  ^ ^  \\\n"
              "   > \\   / <       100.0%\n"
              "   \\  \\_/  /\n"
              "    \\_____/         time spent:  1 mins      \n");
    EXPECT_EQ(finishedFrame({777.0, 0.5, -4, "x", 1000.0, 1000.0}, "   /  _ _  \\\n"),
              "     _____\n"
              "    /     \\         x\n"
              "   /  _ _  \\\n"
              "   > \\   / <       100.0%\n"
              "   \\  \\_/  /\n"
              "    \\_____/         time spent:  0 secs      \n");
}

TEST(FaceFrame, BrightensAsTheWorkGoesOn) {
    const char* const worried = "   \\  / \\  /\n    \\_____/";
    const char* const flat = "   \\  ---  /\n    \\_____/";
    const char* const smiling = "   \\  \\_/  /\n    \\_____/";
    const struct {
        double ratio;
        const char* eyes;
        const char* middle;
        const char* percentage;
        const char* mouth;
    } cases[] = {
        {-1.0, "* *", "  _  ", "-100.0", worried},
        {4.9e-324, "* *", "  _  ", "0.0", worried},
        {0.1, "* *", "  _  ", "10.0", worried},
        {0.24999999999999997, "* *", "  _  ", "25.0", worried},
        {0.25, "* *", "     ", "25.0", flat},
        {0.25000000000000006, "* *", "     ", "25.0", flat},
        {0.39999999999999997, "* *", "     ", "40.0", flat},
        {0.4, ". .", "     ", "40.0", flat},
        {0.5999999999999999, ". .", "     ", "60.0", flat},
        {0.6, ". .", "     ", "60.0", smiling},
        {0.7999999999999999, ". .", "     ", "80.0", smiling},
        {0.8, "o o", "     ", "80.0", smiling},
        {0.8999999999999999, "o o", "     ", "90.0", smiling},
        {0.9, "* *", "     ", "90.0", smiling},
        {0.9999999999999999, "* *", "     ", "100.0", smiling},
    };
    for (const auto& c : cases) {
        for (const bool closed : {false, true}) {
            // Begun this moment: no time is left at any pace.
            const std::string frame = runningFrame({c.ratio, 1.0, 0, "label", 1000.0, 1000.0}, closed);
            EXPECT_EQ(frame, std::string("     _____\n    /     \\         label\n") + "   /  " +
                                 (closed ? "_ _" : c.eyes) + "  \\\n   > " + c.middle + " <        " + c.percentage +
                                 "% |  \n" + c.mouth + "         time remaining: 0 secs      \n")
                << std::to_string(c.ratio) << (closed ? " closed" : " open");
        }
    }
}

TEST(FaceFrame, IsARunningOneBelowTheWhole) {
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const struct {
        double value;
        double total;
        bool running;
    } cases[] = {
        {0.0, 1.0, true},         {0.9999999999999999, 1.0, true},
        {1.0, 1.0, false},        {1.0000000000000002, 1.0, false},
        {-1.0, 1.0, true},        {-1.0, -1.0, false},
        {1.0, infinity, true},    {1.0, -infinity, true},
        {infinity, 1.0, false},   {-infinity, 1.0, true},
        {1.0, 0.0, false},        {-1.0, 0.0, true},
        {0.0, 0.0, false},        {notANumber, 1.0, false},
        {1.0, notANumber, false}, {infinity, infinity, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ((Kelp::FaceState{c.value, c.total, 0, "", 0.0, 0.0}.isRunning()), c.running)
            << c.value << " of " << c.total;
    }
}

}  // namespace
