#include <kelplib/CommandLineTool.h>

#include <iterator>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "arguments.h"
#include "progress_test.h"

namespace {

using Counts = std::map<std::string, int>;

constexpr int reportsPerThread = 50;

/// What one of the threads reports. Labels and values are all different, so that a mixture of two is neither.
struct Report {
    double value;
    const char* label;
    const char* barBehindLabel;
    const char* faceBehindLabel;
};

constexpr Report reports[] = {
    {1.0, "a", "  5.0% #       |\r",
     "\n   /  * *  \\\n   >   _   <        5.0% #       |  \n   \\  / \\  /\n    \\_____/"},
    {3.0, "second", " 15.0% ##      |\r",
     "\n   /  * *  \\\n   >   _   <        15.0% ##      |  \n   \\  / \\  /\n    \\_____/"},
    {4.0, "the third of them", " 20.0% ##      |\r",
     "\n   /  * *  \\\n   >   _   <        20.0% ##      |  \n   \\  / \\  /\n    \\_____/"},
    {6.0, "4", " 30.0% ###     |\r",
     "\n   /  * *  \\\n   >       <        30.0% ###     |  \n   \\  ---  /\n    \\_____/"},
    {7.5, "fifth thread", " 37.5% ###    |\r",
     "\n   /  * *  \\\n   >       <        37.5% ###    |  \n   \\  ---  /\n    \\_____/"},
    {10.0, "sixth of the eight threads", " 50.0% ####   |\r",
     "\n   /  . .  \\\n   >       <        50.0% ####   |  \n   \\  ---  /\n    \\_____/"},
    {14.0, "7th", " 70.0% ######  |\r",
     "\n   /  . .  \\\n   >       <        70.0% ######  |  \n   \\  \\_/  /\n    \\_____/"},
    {19.0, "", " 95.0% ########|\r",
     "\n   /  * *  \\\n   >       <        95.0% ########|  \n   \\  \\_/  /\n    \\_____/"},
};

/// Eight threads report through one tool.
class CommandLineToolThreads : public ProgressTest {
protected:
    CommandLineToolThreads() : line{"tool"}, tool(line.argc(), line.argv(), "") {
        tool.initProgress(20.0, "not reported yet", 100);
        KELP_GlobalProgress.width = 8;
        KELP_GlobalProgress.last_blink = 1000.0;
    }

    /// What the threads draw, all at the same time.
    std::string drawnByAllThreads() {
        return written([this] { reportFromAllThreads(); });
    }

    Arguments line;
    CommandLineTool tool;

private:
    void reportFromAllThreads() {
        std::vector<std::thread> threads;
        for (const Report& report : reports) {
            threads.emplace_back([this, &report] {
                for (int i = 0; i < reportsPerThread; ++i) {
                    tool.progress(report.value, report.label, 100);
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
};

/// How often each piece of the text occurs; pieces end in `end`.
Counts countPieces(const std::string& text, const std::string& end) {
    Counts counts;
    std::size_t begin = 0;
    for (std::size_t found = 0; (found = text.find(end, begin)) != std::string::npos; begin = found + end.size()) {
        ++counts[text.substr(begin, found + end.size() - begin)];
    }
    ++counts["behind the last piece: " + text.substr(begin)];
    return counts;
}

TEST_F(CommandLineToolThreads, DrawEveryBarWhole) {
    KELP_GlobalProgress.smile = 0;
    KELP_GlobalProgress.start_time = 0.0;
    const std::string text = drawnByAllThreads();

    Counts expected = {{"behind the last piece: ", 1}};
    for (const Report& report : reports) {
        expected[std::string(report.label) + report.barBehindLabel] = reportsPerThread;
    }
    EXPECT_EQ(countPieces(text, "\r"), expected);
}

TEST_F(CommandLineToolThreads, DrawEveryFaceWhole) {
    const std::string text = drawnByAllThreads();

    Counts expected = {{"behind the last piece: ", 1}};
    for (const Report& report : reports) {
        expected[std::string("     _____\n    /     \\         ") + report.label + report.faceBehindLabel +
                 "         time remaining: 0 secs      \n"] = reportsPerThread;
    }
    EXPECT_EQ(countPieces(text, " secs      \n"), expected);
    EXPECT_EQ(fake_platform::state().rewoundLines.size(), std::size(reports) * reportsPerThread);
}

TEST_F(CommandLineToolThreads, MaySetUpAgainMeanwhile) {
    std::thread setUp([this] {
        for (int i = 0; i < reportsPerThread; ++i) {
            tool.initProgress(20.0, "set up again", 100);
        }
    });
    const std::string text = drawnByAllThreads();
    setUp.join();
    EXPECT_EQ(fake_platform::state().rewoundLines.size(), std::size(reports) * reportsPerThread);
    EXPECT_EQ(text.find("set up again"), std::string::npos) << "every report brings its own label";
}

}  // namespace
