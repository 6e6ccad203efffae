#include <kelpkit/Interruption.h>
#include <kelpkit/Progress.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>

#include "clock_tick.h"
#include "console_size.h"
#include "progress_test.h"

namespace {

Kelpkit::ConsoleSize console{80, 24};
int signalReceived = 0;
int timesNoted = 0;
std::optional<std::uint64_t> tick;  ///< without it, a tick is a microsecond of the fake clock

}  // namespace

Kelpkit::ConsoleSize Kelpkit::consoleSize() {
    return console;
}

std::uint64_t Kelpkit::clockTick() {
    return tick.value_or(static_cast<std::uint64_t>(fake_platform::state().seconds * 1e6));
}

void Kelpkit::noteInterruptions() {
    ++timesNoted;
}

void Kelpkit::checkInterruption() {
    if (signalReceived != 0) {
        throw Interruption{signalReceived};
    }
}

namespace {

using Kelpkit::Progress;

// The frames of work that is half done after half a second. The first face blinks, so it has two frames.
constexpr char closedEyes[] =
    "     _____\n"
    "    /     \\         copying \n"
    "   /  _ _  \\\n"
    "   >       <        50.0% ###############              |  \n"
    "   \\  ---  /\n"
    "    \\_____/         time remaining: 0 secs      \n";
constexpr char openEyes[] =
    "     _____\n"
    "    /     \\         copying \n"
    "   /  . .  \\\n"
    "   >       <        50.0% ###############              |  \n"
    "   \\  ---  /\n"
    "    \\_____/         time remaining: 0 secs      \n";
constexpr char cheer[] =
    "     _____\n"
    "    /     \\         copying \n"
    "   /  ^ ^  \\\n"
    "   > \\   / <       100.0%\n"
    "   \\  \\_/  /\n"
    "    \\_____/         time spent:  0 secs      \n";
constexpr char cheerWithClosedEyes[] =
    "     _____\n"
    "    /     \\         copying \n"
    "   /  _ _  \\\n"
    "   > \\   / <       100.0%\n"
    "   \\  \\_/  /\n"
    "    \\_____/         time spent:  0 secs      \n";
constexpr char halfBar[] = "copying  50.0% ###############              | time left: 0 secs  \r";
constexpr char fullBar[] = "copying 100.0% ############################### done in: 0.7 secs  \r";

/// The work starts at 1000 s.
class KitProgress : public ProgressTest {
protected:
    KitProgress() {
        clock(1000.0);
    }

    ~KitProgress() override {
        console = {80, 24};
        signalReceived = 0;
        tick.reset();
        Kelpkit::showProgress(true);
    }

    /// Returns everything that is drawn for an amount of 100: one half is done at `halfSeconds`, the other half 0.2 s later.
    static std::string drawn(double halfSeconds = 1000.5) {
        return written([=] {
            clock(1000.0);
            Progress progress(100, "copying");
            clock(halfSeconds);
            progress.advance(50);
            clock(halfSeconds + 0.2);
            progress.advance(50);
            progress.finish();
        });
    }

    void useBar() {
        msystem.emplace("MSYSTEM", "MSYS");
    }

    const std::string wholeFace = std::string(closedEyes) + openEyes + cheer + cheerWithClosedEyes + cheer;
    const std::string finishedBar = std::string(fullBar) + "\n";
    const std::string wholeBar = halfBar + finishedBar;

private:
    std::optional<ScopedVariable> msystem;
};

std::size_t frames(const std::string& bars) {
    return static_cast<std::size_t>(std::count(bars.begin(), bars.end(), '\r'));
}

TEST_F(KitProgress, BeginsAfterHalfASecond) {
    EXPECT_EQ(drawn(1000.499), "");
    EXPECT_EQ(drawn(1000.5), wholeFace);
    useBar();
    EXPECT_EQ(drawn(1000.499), "");
    EXPECT_EQ(drawn(1000.5), wholeBar);
}

TEST_F(KitProgress, NeedsAConsoleWithRoom) {
    struct Row {
        Kelpkit::ConsoleSize size;
        bool face;
        bool bar;
    };
    const Row table[] = {
        {{0, 0}, false, false},  {{80, 0}, false, false}, {{61, 7}, true, false},     {{60, 7}, false, false},
        {{61, 6}, false, false}, {{78, 7}, true, true},   {{78, 6}, false, true},     {{77, 7}, true, false},
        {{78, 2}, false, true},  {{78, 1}, false, false}, {{1000, 1000}, true, true}, {{-1, -1}, false, false},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(std::to_string(row.size.columns) + " " + std::to_string(row.size.rows));
        console = row.size;
        KELP_GlobalProgress.last_blink = 0.0;
        EXPECT_EQ(drawn(), row.face ? wholeFace : "");
        const ScopedVariable terminal("MSYSTEM", "MSYS");
        EXPECT_EQ(drawn(), row.bar ? wholeBar : "");
    }
}

TEST_F(KitProgress, EveryLineFitsTheSmallestConsole) {
    const auto longest = [](const std::string& text) {
        std::size_t length = 0;
        std::size_t start = 0;
        while (start < text.size()) {
            const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
            length = std::max(length, end - start);
            start = end + 1;
        }
        return length;
    };
    const auto unlucky = [] {
        Progress progress(1000000, "a label of more than 128 bytes" + std::string(100, '.') + " that cannot be shown");
        clock(1900.0);
        progress.advance(1);
        progress.advance(999998);
        clock(1000000.0);
        progress.advance(0);
        progress.advance(1);
        progress.finish();
    };
    EXPECT_LE(longest(written(unlucky)), 60U);
    useBar();
    clock(1000.0);
    EXPECT_LE(longest(written(unlucky)), 77U);
}

TEST_F(KitProgress, CanBeSwitchedOff) {
    Kelpkit::showProgress(false);
    EXPECT_EQ(drawn(), "");
    Kelpkit::showProgress(true);
    EXPECT_EQ(drawn(), wholeFace);
}

TEST_F(KitProgress, LeavesTheCursorBelowAnUnfinishedFrame) {
    const auto failing = [](double seconds) {
        return written([=] {
            clock(1000.0);
            try {
                Progress progress(100, "copying");
                clock(seconds);
                progress.advance(50);
                throw std::runtime_error("");
            } catch (const std::runtime_error&) {
            }
        });
    };
    EXPECT_EQ(failing(1000.49), "");
    EXPECT_EQ(failing(1000.5), std::string(closedEyes) + openEyes + "\n\n\n\n\n\n");
    useBar();
    EXPECT_EQ(failing(1000.49), "");
    EXPECT_EQ(failing(1000.5), std::string(halfBar) + "\n");
}

TEST_F(KitProgress, EndsWithAnInterruption) {
    useBar();
    int caught = 0;
    const std::string text = written([&] {
        try {
            Progress progress(100, "copying");
            clock(1000.5);
            progress.advance(50);
            signalReceived = 15;
            clock(1001.0);
            progress.advance(1);
        } catch (const Kelpkit::Interruption& interruption) {
            caught = interruption.signal;
        }
    });
    EXPECT_EQ(caught, 15);
    EXPECT_EQ(text, std::string(halfBar) + "\n");
}

TEST_F(KitProgress, NotesInterruptionsIfItMayDraw) {
    timesNoted = 0;
    console = {0, 0};
    { const Progress withoutConsole(100, "copying"); }
    EXPECT_EQ(timesNoted, 0);
    console = {80, 24};
    Kelpkit::showProgress(false);
    { const Progress hidden(100, "copying"); }
    Kelpkit::showProgress(true);
    EXPECT_EQ(timesNoted, 0);
    const Progress progress(100, "copying");
    EXPECT_EQ(timesNoted, 1);
    const Progress second(100, "copying");
    EXPECT_EQ(timesNoted, 1);
}

TEST_F(KitProgress, IsInterruptedWithoutAConsoleToo) {
    console = {0, 0};
    signalReceived = 2;
    Progress progress(100, "copying");
    EXPECT_THROW(progress.advance(1), Kelpkit::Interruption);
}

TEST_F(KitProgress, DrawsAtMostTenTimesASecond) {
    useBar();
    const std::string text = written([] {
        Progress progress(10000, "copying");
        for (int milliseconds = 1; milliseconds < 10000; ++milliseconds) {
            clock(1000.0 + milliseconds / 1000.0);
            progress.advance(1);
        }
    });
    // From 0.5 s to 9.9 s, with a little tolerance for clocks in binary fractions.
    EXPECT_LE(frames(text), 95U);
    EXPECT_GE(frames(text), 93U);
}

TEST_F(KitProgress, WaitsATenthOfASecondBetweenDrawings) {
    useBar();
    for (const double seconds : {0.0995, 0.1005}) {
        clock(1000.0);
        const std::string text = written([=] {
            Progress progress(100, "copying");
            clock(1000.5);
            progress.advance(50);
            clock(1000.5 + seconds);
            progress.advance(10);
        });
        EXPECT_EQ(frames(text), seconds < 0.1 ? 1U : 2U) << seconds;
    }
}

TEST_F(KitProgress, CountsTheTimeOfDrawing) {
    // The blink takes 75 ms.
    const std::string text = written([] {
        Progress progress(100, "copying");
        clock(1000.5);
        progress.advance(50);
        clock(1000.67);
        progress.advance(10);
        fake_platform::state().seconds = 1000.68;
        progress.advance(10);
    });
    EXPECT_NE(text.find(" 70.0% "), std::string::npos);
    EXPECT_EQ(text.find(" 60.0% "), std::string::npos);
}

TEST_F(KitProgress, IsNotRedrawnUnlessSomethingChanged) {
    useBar();
    const std::string text = written([] {
        Progress progress(100, "copying");
        clock(1000.5);
        progress.advance(0);
        progress.advance(50);
        for (int seconds = 1001; seconds < 1100; ++seconds) {
            clock(seconds);
            progress.advance(0);
        }
    });
    EXPECT_EQ(text, std::string(halfBar) + "\n");
}

TEST_F(KitProgress, DrawsAtASlowCallAfterQuickOnes) {
    useBar();
    for (const int quickCalls : {0, 1, 31, 32, 100}) {
        clock(1000.0);
        const std::string text = written([=] {
            Progress progress(1000, "copying");
            for (int i = 0; i < quickCalls; ++i) {
                progress.advance(1);
            }
            for (const double now : {1000.3, 1000.6, 1000.9}) {
                clock(now);
                progress.advance(1);
            }
        });
        EXPECT_EQ(frames(text), 2U) << quickCalls;
    }
}

TEST_F(KitProgress, ReadsTheClockOnceATick) {
    useBar();
    for (const std::uint64_t step : {0U, 1U}) {
        clock(1000.0);
        const std::string text = written([=] {
            Progress progress(1000, "copying");
            tick = 1;
            progress.advance(1);
            clock(1001.0);
            *tick += step;
            for (int i = 0; i < 100; ++i) {
                progress.advance(1);
            }
        });
        EXPECT_EQ(frames(text), step) << step;
    }
}

TEST_F(KitProgress, FollowsTheSizeOfTheConsole) {
    useBar();
    const std::string text = written([] {
        Progress progress(100, "copying");
        for (int step = 0; step < 6; ++step) {
            clock(1001.0 + step);
            console.columns = step % 2 == 0 ? 80 : 77;
            progress.advance(10);
        }
        console.columns = 80;
        progress.finish();
    });
    EXPECT_EQ(text,
              "copying  10.0% ###                          | time left: 11 secs  \r"
              "copying  30.0% #########                    | time left: 7 secs  \r"
              "copying  50.0% ###############              | time left: 4 secs  \r"
              "copying 100.0% ############################### done in: 6.0 secs  \r\n");
}

TEST_F(KitProgress, LeavesAWrappedFrameInANarrowConsole) {
    struct Row {
        Kelpkit::ConsoleSize size;
        std::size_t rows;
    };
    const Row table[] = {{{61, 6}, 6 + 0},  {{60, 24}, 6 + 3},  {{31, 24}, 6 + 3},
                         {{30, 24}, 6 + 6}, {{1, 24}, 6 + 180}, {{0, 0}, 6}};
    for (const Row& row : table) {
        for (const bool finishes : {false, true}) {
            KELP_GlobalProgress.last_blink = 0.0;
            const std::string text = written([=] {
                console = {80, 24};
                clock(1000.0);
                Progress progress(100, "copying");
                clock(1000.5);
                progress.advance(50);
                console = row.size;
                if (finishes) {
                    progress.finish();
                }
            });
            EXPECT_EQ(text, std::string(closedEyes) + openEyes + std::string(row.rows, '\n')) << row.size.columns;
        }
    }
}

TEST_F(KitProgress, LeavesAWrappedBarInANarrowConsole) {
    useBar();
    const std::pair<int, std::size_t> table[] = {{78, 1 + 0}, {77, 1 + 1}, {39, 1 + 1},
                                                 {38, 1 + 2}, {1, 1 + 77}, {0, 1}};
    for (const auto& [columns, rows] : table) {
        const std::string text = written([columns = columns] {
            console = {80, 24};
            clock(1000.0);
            Progress progress(100, "copying");
            clock(1000.5);
            progress.advance(50);
            console.columns = columns;
        });
        EXPECT_EQ(text, halfBar + std::string(rows, '\n')) << columns;
    }
}

TEST_F(KitProgress, ShowsOnlyOneAtATime) {
    useBar();
    const std::string text = written([] {
        Progress outer(100, "copying");
        clock(1000.5);
        for (const char* label : {"inner", "second"}) {
            clock(1000.5);
            Progress inner(2, label);
            clock(1001.5);
            inner.advance(1);
            inner.finish();
        }
        clock(1000.5);
        outer.advance(50);
        clock(1000.7);
        outer.finish();
        Progress next(2, "next");
        clock(1001.7);
        next.advance(1);
    });
    EXPECT_EQ(text, wholeBar + "next  50.0% ###############              | time left: 0 secs  \r\n");
}

TEST_F(KitProgress, IsFinishedOnce) {
    useBar();
    const std::string text = written([] {
        Progress progress(100, "copying");
        clock(1000.5);
        progress.advance(50);
        clock(1000.7);
        progress.finish();
        progress.finish();
        clock(1001.0);
        progress.advance(10);
    });
    EXPECT_EQ(text, wholeBar);
}

TEST_F(KitProgress, IsFinishedBeforeItIsDrawn) {
    useBar();
    const std::string text = written([] {
        Progress progress(100, "copying");
        clock(1000.1);
        progress.advance(50);
        progress.finish();
        clock(1001.0);
        progress.advance(10);
    });
    EXPECT_EQ(text, "");
}

TEST_F(KitProgress, AcceptsAnyAmount) {
    useBar();
    constexpr std::uintmax_t most = std::numeric_limits<std::uintmax_t>::max();
    struct Row {
        std::uintmax_t total;
        std::uintmax_t first;
        std::uintmax_t second;
        std::string text;
    };
    const Row table[] = {
        {0, 0, 0, ""},
        {0, 5, most, ""},
        {1, 1, most, ""},
        {100, 150, 150, ""},
        {100, 50, most, wholeBar},
        {1990000000, 1, 0, "copying   0.0% #                             | time left: 373124 hours \r" + finishedBar},
        // The time left would be too long for the library, or the ratio is 1 as a double.
        {2000000000, 1, 0, ""},
        {most, 1, 1, ""},
        {most, most - 1, 0, ""},
        {most, most / 2, most, wholeBar},
        {most, 1, most / 2, wholeBar},
    };
    for (const Row& row : table) {
        const std::string text = written([&] {
            clock(1000.0);
            Progress progress(row.total, "copying");
            clock(1000.5);
            progress.advance(row.first);
            clock(1000.7);
            progress.advance(row.second);
            progress.finish();
        });
        EXPECT_EQ(text, row.text) << row.total << " " << row.first;
    }
}

TEST_F(KitProgress, ShortensLabelsAndReplacesWhatCannotBePrinted) {
    useBar();
    const std::pair<std::string, std::string> table[] = {
        {"", "  50.0% "},
        {"twelve bytes", "twelve bytes  50.0% "},
        {"thirteen byte", "thirteen byte  50.0% "},
        {"fourteen bytes", "four... bytes  50.0% "},
        {"a\x1b[2J\n\x7f\tb", "a?[2J???b  50.0% "},
        {"\xc3\xa4\xff", "\xc3\xa4?  50.0% "},
        {std::string("a\0b", 3), "a?b  50.0% "},
        {"a\xc2\x9b"
         "2Jb\xc2\x80\xc2\xa0",
         "a??2Jb??\xc2\xa0  50.0% "},
        {"\xc3", "?  50.0% "},
        // Characters are whole: of "\u00e4" (two bytes), the euro sign (three) and an emoji (four).
        {"x\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4", "x\u00e4...\u00e4\u00e4\u00e4  50.0% "},
        {"\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4x", "\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4x  50.0% "},
        {"\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4xy", "\u00e4\u00e4...\u00e4\u00e4xy  50.0% "},
        {"\u20ac\u20ac\u20ac\u20ac", "\u20ac\u20ac\u20ac\u20ac  50.0% "},
        {"\u20ac\u20ac\u20ac\u20ac\u20ac", "\u20ac...\u20ac\u20ac  50.0% "},
        {"x\u20ac\u20ac\u20ac\u20ac\u20ac", "x\u20ac...\u20ac\u20ac  50.0% "},
        {"ab\u20ac\u20ac\u20ac\u20acx", "ab...\u20acx  50.0% "},
        {"\U0001f600\U0001f600\U0001f600\U0001f600", "\U0001f600...\U0001f600  50.0% "},
        {"x\U0001f600\U0001f600\U0001f600xxx", "x...xxx  50.0% "},
        {"x\U0001f600\U0001f600\U0001f600xx", "x...\U0001f600xx  50.0% "},
        {"\U0001f600\U0001f600\U0001f600x", "\U0001f600\U0001f600\U0001f600x  50.0% "},
    };
    for (const auto& [label, start] : table) {
        const std::string text = written([&label = label] {
            clock(1000.0);
            Progress progress(100, label);
            clock(1000.5);
            progress.advance(50);
        });
        EXPECT_EQ(text.substr(0, start.size()), start);
    }
}

}  // namespace
