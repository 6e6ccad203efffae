// What the shared library hands to the system, write by write: write_tool WHAT BUFFERING DESCRIPTOR BEFORE. The stream stdout
// leads to that descriptor, while descriptor 1 tells the library whether it is on a console: so what it writes to one can be
// read from a pipe that keeps the writes apart. BEFORE is printed first. No real time is shown, as in progress_tool.
#include <kelplib/KelpProgress.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace {

constexpr double tenHours = 36000.0;

void bar() {
    for (const double value : {0.0, 50.0, 100.0}) {
        KELP_progress(value, 100.0, 20, "Reading", 0.0);
    }
}

/// As many characters as one call writes at most.
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

struct Command {
    const char* name;
    void (*run)();
};

constexpr Command commands[] = {
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
    for (const Command& command : commands) {
        if (argc == 5 && std::strcmp(argv[1], command.name) == 0 && redirect(argv[2], argv[3])) {
            std::fputs(argv[4], stdout);
            std::fflush(stdout);
            command.run();
            return 0;
        }
    }
    static_cast<void>(std::fputs("write_tool: no such call, buffering or descriptor\n", stderr));
    return 2;
}
