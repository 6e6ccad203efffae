// The writes with which the library hands its output to the system: write_tool COMMAND BUFFERING DESCRIPTOR BEFORE. The
// library decides by descriptor 1 whether it draws on a console, but the stream stdout writes to DESCRIPTOR. So a pipe that
// keeps writes apart can receive what is meant for a console. BEFORE is printed first. As in progress_tool, the duration of
// a test does not show.
#include <kelplib/KelpProgress.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "commands.h"

namespace {

constexpr double tenHours = 36000.0;

void bar() {
    for (const double value : {0.0, 50.0, 100.0}) {
        KELP_progress(value, 100.0, 20, "Reading", 0.0);
    }
}

/// The longest line that one call writes.
void wideBar() {
    KELP_progress(50.0, 100.0, 5000, "Reading", 0.0);
}

void drawFace(std::initializer_list<double> values) {
    KELP_progress_global_init(100.0, 20, "the label", 1);
    KELP_GlobalProgress.start_time = KELP_time_stamp() - tenHours;
    for (const double value : values) {
        KELP_progress_global(value);
    }
}

void face() {
    drawFace({10.0, 50.0});
}

void finishedFace() {
    drawFace({100.0});
}

void negative() {
    KELP_progress(-1.0, 100.0, 20, "Reading", 0.0);
}

constexpr Command<> commands[] = {
    {"bar", bar}, {"wide-bar", wideBar}, {"face", face}, {"finished-face", finishedFace}, {"negative", negative}};

struct Buffering {
    const char* name;
    int mode;
};

constexpr Buffering bufferings[] = {{"full", _IOFBF}, {"line", _IOLBF}, {"none", _IONBF}};

bool redirect(const char* name, const char* descriptor) {
    for (const Buffering& buffering : bufferings) {
        if (std::strcmp(name, buffering.name) == 0) {
            stdout = fdopen(static_cast<int>(std::strtol(descriptor, nullptr, 10)), "w");
            return stdout != nullptr && std::setvbuf(stdout, nullptr, buffering.mode, BUFSIZ) == 0;
        }
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5 || !redirect(argv[2], argv[3])) {
        return 2;
    }
    std::fputs(argv[4], stdout);
    std::fflush(stdout);
    return runCommand(commands, argv[1]);
}
