// Counting progress that draws nothing: without a console, and on a console where nothing is due. The second one reads the clock
// now and then; the third shows what reading it at every call would cost.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <kelpkit/Progress.h>
#include <kelplib/KelpProgress.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <limits>
#include <optional>

namespace {

constexpr std::uintmax_t total = std::numeric_limits<std::uintmax_t>::max();

/// Makes a file standard output while it exists.
class Output {
public:
    explicit Output(int file) : before(dup(STDOUT_FILENO)) {
        dup2(file, STDOUT_FILENO);
    }
    ~Output() {
        dup2(before, STDOUT_FILENO);
        close(before);
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

private:
    int before;
};

int openConsole() {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    grantpt(terminal);
    unlockpt(terminal);
    const winsize size{24, 80, 0, 0};
    ioctl(terminal, TIOCSWINSZ, &size);
    return open(ptsname(terminal), O_RDWR | O_NOCTTY);
}

/// Work that does not grow is never drawn.
void advance(benchmark::State& state, int output, std::uintmax_t amount) {
    std::optional<Kelpkit::Progress> progress;
    {
        const Output replaced(output);
        progress.emplace(total, "counting");
    }
    for ([[maybe_unused]] auto turn : state) {
        progress->advance(amount);
    }
}

}  // namespace

static void withoutConsole(benchmark::State& state) {
    advance(state, open("/dev/null", O_WRONLY), 1);
}
BENCHMARK(withoutConsole)->Name("advance/file");

static void onConsole(benchmark::State& state) {
    advance(state, openConsole(), 0);
}
BENCHMARK(onConsole)->Name("advance/console");

static void clockOnly(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state) {
        benchmark::DoNotOptimize(KELP_time_stamp());
    }
}
BENCHMARK(clockOnly)->Name("advance/clock");

BENCHMARK_MAIN();
