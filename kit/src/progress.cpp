#include <kelpkit/Interruption.h>
#include <kelpkit/Progress.h>
#include <kelplib/KelpProgress.h>

#include <algorithm>
#include <cstdio>

#include "clock_tick.h"
#include "console_size.h"
#include "unprintable.h"

namespace Kelpkit {

namespace {

constexpr double secondsBeforeFirstDraw = 0.5;
constexpr double secondsBetweenDraws = 0.1;

/// A longer estimate of the time left is not shown: the library's number of seconds could overflow.
constexpr double longestEstimateSeconds = 1e9;

constexpr int barWidth = 30;
constexpr std::size_t labelLength = 13;

/// The space that a display needs: one column more than its longest line, so that the line does not wrap, and one row more than
/// its lines for the cursor.
struct Layout {
    int lines;
    int longLines;  ///< how many of its lines wrap in a narrow console
    int columns;
    int rows;
};
constexpr Layout face{6, 3, 61, 7};
constexpr Layout bar{1, 1, 78, 2};

bool isOn = true;
bool isTaken = false;

const Layout& layout() {
    return KELP_GlobalProgress.smile == 1 ? face : bar;
}

bool fits(const ConsoleSize& console) {
    return console.columns >= layout().columns && console.rows >= layout().rows;
}

/// Returns how many rows lead below the last frame. If the console has become narrower, its terminal may have wrapped the frame.
int rowsOfFrame() {
    const int columns = consoleSize().columns;
    const int wrapped = columns > 0 ? (layout().columns - 1) / columns : 0;
    return layout().lines + layout().longLines * wrapped;
}

/// While it exists, failures to write to standard output are forgotten: the tool checks at its end what it has printed, and a
/// display that cannot be drawn is no failure.
class UncheckedOutput {
public:
    UncheckedOutput() : hadFailed(std::ferror(stdout) != 0) {}
    ~UncheckedOutput() {
        if (!hadFailed) {
            std::clearerr(stdout);
        }
    }
    UncheckedOutput(const UncheckedOutput&) = delete;
    UncheckedOutput& operator=(const UncheckedOutput&) = delete;
    UncheckedOutput(UncheckedOutput&&) = delete;
    UncheckedOutput& operator=(UncheckedOutput&&) = delete;

private:
    bool hadFailed;
};

void drawAmount(double amount) {
    const UncheckedOutput unchecked;
    KELP_progress_global(amount);
}

/// Replaces the middle of a long label with "...". The library would do so too, even within a character.
std::string shortened(const std::string& label) {
    if (label.size() <= labelLength) {
        return label;
    }
    const auto isWithinCharacter = [&label](std::size_t position) {
        return (static_cast<unsigned char>(label[position]) & 0xC0U) == 0x80U;
    };
    std::size_t end = 4;
    while (isWithinCharacter(end)) {
        --end;
    }
    std::size_t start = label.size() - 6;
    while (isWithinCharacter(start)) {
        ++start;
    }
    return label.substr(0, end) + "..." + label.substr(start);
}

void prepareDisplay(std::uintmax_t total, const std::string& name) {
    // The percentage of the bar follows the label directly.
    const std::string label = shortened(replaceUnprintable(name, [](char) { return std::string("?"); })) + ' ';
    KELP_progress_global_init(static_cast<double>(total), barWidth, label.c_str(), 1);
    KELP_progress_global_set_text(label.c_str(), label.size() + 1);
}

}  // namespace

Progress::Progress(std::uintmax_t total, const std::string& label)
    : total(total),
      nextDrawSeconds(KELP_time_stamp() + secondsBeforeFirstDraw),
      wanted(isOn && !isTaken && consoleSize().columns > 0) {
    if (wanted) {
        noteInterruptions();
        prepareDisplay(total, label);
        isTaken = true;
    }
}

Progress::~Progress() {
    leave(shown ? rowsOfFrame() : 0);
}

void Progress::advance(std::uintmax_t amount) {
    checkInterruption();
    done += std::min(amount, total - done);
    if (!wanted) {
        return;
    }
    if (const std::uint64_t tick = clockTick(); tick != lastTick) {
        lastTick = tick;
        lookAtClock();
    }
}

void Progress::lookAtClock() {
    const double now = KELP_time_stamp();
    // finish() draws the last frame. The two numbers may be equal as double although more is to be done.
    const auto amount = static_cast<double>(done);
    const auto whole = static_cast<double>(total);
    const double estimate = (now - KELP_GlobalProgress.start_time) * whole;
    if (now >= nextDrawSeconds && done != drawn && amount < whole && estimate < longestEstimateSeconds * amount) {
        draw();
    }
}

void Progress::draw() {
    if (fits(consoleSize())) {
        drawAmount(static_cast<double>(done));
        shown = true;
        drawn = done;
    }
    // A drawing may take some time.
    nextDrawSeconds = KELP_time_stamp() + secondsBetweenDraws;
}

void Progress::finish() {
    if (!shown || !fits(consoleSize())) {
        leave(shown ? rowsOfFrame() : 0);
        return;
    }
    drawAmount(static_cast<double>(total));
    // The finished face leaves the cursor below it, the bar on its own line.
    leave(KELP_GlobalProgress.smile == 1 ? 0 : 1);
}

void Progress::leave(int lines) {
    const UncheckedOutput unchecked;
    for (int i = 0; i < lines; ++i) {
        std::fputc('\n', stdout);
        std::fflush(stdout);
    }
    isTaken = isTaken && !wanted;
    wanted = false;
    shown = false;
}

void showProgress(bool on) {
    isOn = on;
}

}  // namespace Kelpkit
