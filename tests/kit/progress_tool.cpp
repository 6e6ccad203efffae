#include <kelpkit/Interruption.h>
#include <kelpkit/Progress.h>
#include <kelplib/KelpProgress.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

/// A tool with long work, for progress_test.py: progress_tool HOW [FILE]. FILE is what a resized tool waits for.

namespace {

void waitForFile(const std::filesystem::path& file) {
    for (int i = 0; i < 3000 && !std::filesystem::exists(file); ++i) {
        KELP_sleep(10);
    }
}

void work(const std::string& how, const char* file) {
    Kelpkit::showProgress(how != "hidden");
    Kelpkit::Progress progress(100, "copying");
    KELP_sleep(510);
    progress.advance(50);
    if (how == "failing") {
        throw std::runtime_error("the work has failed");
    }
    if (how == "interrupted") {
        std::raise(SIGINT);
    }
    if (how.rfind("resized", 0) == 0) {
        waitForFile(file);
    }
    if (how == "resized-failing") {
        throw std::runtime_error("the work has failed");
    }
    progress.advance(50);
    progress.finish();
}

}  // namespace

int main(int argc, char** argv) {
    try {
        work(argv[1], argc > 2 ? argv[2] : "");
        std::puts("later output");
    } catch (const Kelpkit::Interruption&) {
        std::puts("interrupted");
    } catch (const std::exception& error) {
        std::puts(error.what());
    }
    return 0;
}
