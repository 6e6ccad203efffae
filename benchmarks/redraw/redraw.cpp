// One redraw of the bar, to the null device and to a terminal: kelplib, printf with fflush, and as the limit one write of the
// same bytes.

#include <kelplib/KelpProgress.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <vector>

#include "../../tests/support/allocation_count.h"
#include "../support/measure.h"
#include "output.h"

namespace {

constexpr int redraws = 1000;
constexpr int barWidth = 37;
constexpr char label[] = "Copying";
constexpr char lineInTheMiddle[] = "Copying 50.0% ###################                  | time left: 0 secs  \r";

/// Returns a value that is neither 0 nor the total, for which the bar has another format.
double valueOf(int redraw) {
    return redraw + 0.25;
}

void drawWithKelplib() {
    const double start = KELP_time_stamp();
    for (int i = 0; i < redraws; ++i) {
        KELP_progress(valueOf(i), redraws, barWidth, label, start);
    }
}

void drawWithPrintf() {
    static const std::string marks(barWidth, '#');
    const double start = KELP_time_stamp();
    for (int i = 0; i < redraws; ++i) {
        const double ratio = valueOf(i) / redraws;
        const double filled = barWidth * ratio;
        const double left = (KELP_time_stamp() - start) * (1 - ratio) / ratio;
        std::printf("%s%s%.1f%% %.*s%*s| time left: %d secs  \r", label, ratio < 0.1 ? "  " : " ", 100 * ratio,
                    static_cast<int>(std::ceil(filled)), marks.c_str(), barWidth - 1 - static_cast<int>(filled), "",
                    static_cast<int>(left));
        std::fflush(stdout);
    }
}

/// Returns the lines that kelplib draws on an idle machine, each with its carriage return.
std::vector<std::string> drawnLines() {
    std::string text;
    for (int tries = 10; tries > 0 && (text.empty() || text.find("left: 1") != std::string::npos); --tries) {
        text = printedBy(drawWithKelplib);
    }
    std::vector<std::string> lines;
    for (std::size_t begin = 0, end = 0; (end = text.find('\r', begin)) != std::string::npos; begin = end + 1) {
        lines.push_back(text.substr(begin, end + 1 - begin));
    }
    return lines;
}

const std::vector<std::string>& lines() {
    static const std::vector<std::string> drawn = drawnLines();
    return drawn;
}

void writeLines() {
    for (const std::string& line : lines()) {
        if (write(STDOUT_FILENO, line.data(), line.size()) < 0) {
            return;
        }
    }
}

/// Whether `draw` prints exactly lines(). On a busy machine the time left may differ, so this tries several times.
bool printsLines(void (*draw)()) {
    std::string expected;
    for (const std::string& line : lines()) {
        expected += line;
    }
    if (lines().size() != redraws || lines()[redraws / 2] != lineInTheMiddle) {
        return false;
    }
    int tries = 10;
    while (tries > 0 && printedBy(draw) != expected) {
        --tries;
    }
    return tries > 0;
}

double allocationsOf(void (*draw)()) {
    const Redirection redirection(nullDevice());
    draw();
    const std::size_t before = allocationCount();
    draw();
    return static_cast<double>(allocationCount() - before) / redraws;
}

void add(const std::string& name, int descriptor, void (*draw)()) {
    const auto work = [draw](benchmark::State& state, int target) {
        if (!printsLines(draw)) {
            state.SkipWithError("wrong result");
            return;
        }
        state.counters["items"] = redraws;
        state.counters["allocations"] = allocationsOf(draw);
        const Redirection redirection(target);
        for ([[maybe_unused]] auto turn : state) {
            draw();
        }
    };
    benchmark::RegisterBenchmark(name.c_str(), work, descriptor)->UseRealTime();
}

void addAll(const std::string& target, int descriptor) {
    add("redraw/" + target + "/write", descriptor, writeLines);
    add("redraw/" + target + "/kelplib", descriptor, drawWithKelplib);
    add("redraw/" + target + "/printf and fflush", descriptor, drawWithPrintf);
}

}  // namespace

int main(int argc, char** argv) {
    const Terminal terminal;
    addAll("null", nullDevice());
    addAll("terminal", terminal.descriptor());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
