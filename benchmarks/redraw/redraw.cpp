// One redraw of the bar, to the null device and to a terminal: kelplib, printf with fflush, fwrite with fflush of the ready
// line, and as the limit one write of the same bytes.

#include <kelplib/KelpProgress.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
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

/// Draws one state of the bar, which began at `start`.
using Draw = void (*)(int redraw, double start);

void drawWithKelplib(int redraw, double start) {
    KELP_progress(valueOf(redraw), redraws, barWidth, label, start);
}

void drawWithPrintf(int redraw, double start) {
    static const std::string marks(barWidth, '#');
    const double ratio = valueOf(redraw) / redraws;
    const double filled = barWidth * ratio;
    const double left = (KELP_time_stamp() - start) * (1 - ratio) / ratio;
    std::printf("%s%s%.1f%% %.*s%*s| time left: %d secs  \r", label, ratio < 0.1 ? "  " : " ", 100 * ratio,
                static_cast<int>(std::ceil(filled)), marks.c_str(), barWidth - 1 - static_cast<int>(filled), "",
                static_cast<int>(left));
    std::fflush(stdout);
}

template <Draw draw>
void drawAll() {
    const double start = KELP_time_stamp();
    for (int i = 0; i < redraws; ++i) {
        draw(i, start);
    }
}

/// Returns the lines that kelplib draws on an idle machine, each with its carriage return.
std::vector<std::string> drawnLines() {
    std::string text;
    for (int tries = 10; tries > 0 && (text.empty() || text.find("left: 1") != std::string::npos); --tries) {
        text = printedBy(drawAll<drawWithKelplib>);
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

void writeLine(int redraw, double /*start*/) {
    const std::string& line = lines()[static_cast<std::size_t>(redraw)];
    if (write(STDOUT_FILENO, line.data(), line.size()) < 0) {
        std::abort();
    }
}

void writeLineWithC(int redraw, double /*start*/) {
    const std::string& line = lines()[static_cast<std::size_t>(redraw)];
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fflush(stdout);
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

template <Draw draw>
void add(const std::string& name, int descriptor) {
    const auto work = [](benchmark::State& state, int target) {
        if (!printsLines(drawAll<draw>)) {
            state.SkipWithError("wrong result");
            return;
        }
        state.counters["items"] = redraws;
        state.counters["allocations"] = allocationsOf(drawAll<draw>);
        const Redirection redirection(target);
        for ([[maybe_unused]] auto turn : state) {
            drawAll<draw>();
        }
    };
    benchmark::RegisterBenchmark(name.c_str(), work, descriptor)->UseRealTime();
}

/// Measures redraws on a terminal that is read empty after each one, outside the measured time.
template <Draw draw>
void addWithPauses(const std::string& name) {
    const auto work = [](benchmark::State& state) {
        if (!printsLines(drawAll<draw>)) {
            state.SkipWithError("wrong result");
            return;
        }
        state.counters["items"] = redraws;
        QuietTerminal terminal;
        const Redirection redirection(terminal.descriptor());
        for ([[maybe_unused]] auto turn : state) {
            const double start = KELP_time_stamp();
            std::chrono::steady_clock::duration time{};
            for (int i = 0; i < redraws; ++i) {
                const auto before = std::chrono::steady_clock::now();
                draw(i, start);
                time += std::chrono::steady_clock::now() - before;
                terminal.readLine();
            }
            state.SetIterationTime(std::chrono::duration<double>(time).count());
        }
    };
    benchmark::RegisterBenchmark(name.c_str(), work)->UseManualTime();
}

template <Draw draw>
void addAll(const std::string& library, int terminal) {
    add<draw>("redraw/null/" + library, nullDevice());
    addWithPauses<draw>("redraw/terminal/" + library);
    add<draw>("redraw/busy/" + library, terminal);
}

}  // namespace

int main(int argc, char** argv) {
    const Terminal terminal;
    addAll<writeLine>("write", terminal.descriptor());
    addAll<writeLineWithC>("fwrite and fflush", terminal.descriptor());
    addAll<drawWithKelplib>("kelplib", terminal.descriptor());
    addAll<drawWithPrintf>("printf and fflush", terminal.descriptor());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
