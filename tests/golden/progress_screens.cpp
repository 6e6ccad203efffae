#include <kelplib/KelpProgress.h>
#include <unistd.h>

#include <cstdlib>
#include <limits>

#include "arguments.h"
#include "fake_platform.h"
#include "scenario.h"

namespace {

/// Writes a line without any stream's buffer: text that the library did not flush before appears after it.
void markPastTheBuffers(const std::string& text) {
    const std::string line = "[" + text + "]\n";
    if (write(STDOUT_FILENO, line.data(), static_cast<unsigned int>(line.size())) == -1) {
        std::abort();
    }
}

void markPausesAndMoves() {
    fake_platform::state().onSleep = [](unsigned int milliseconds) {
        markPastTheBuffers("pause of " + std::to_string(milliseconds) + " ms");
    };
    fake_platform::state().onRewind = [](unsigned int lines) {
        markPastTheBuffers("up " + std::to_string(lines) + " lines");
    };
}

void clock(double seconds) {
    fake_platform::state().seconds = seconds;
}

/// Reports work that began at 1000 s until it is done. `report` takes the value and the label.
template <class Report>
void work(Report report) {
    markPausesAndMoves();
    clock(1001.0);
    report(0.0, "Reading");
    clock(1004.1);
    report(20.0, "Reading");
    clock(1100.0);
    report(100.0, "A label that is far too long");
    clock(1120.0);
    report(200.0, "Done");
    markPastTheBuffers("end of the work");
}

void workOfTool(const CommandLine& row) {
    Arguments line(row.tokens);
    CommandLineTool tool(line.argc(), line.argv(), "Does a job", Kelp::Option("-v", "--verbose", "", false));
    tool.initProgress(200.0, "Starting", 16);
    work([&tool](double value, const char* label) { tool.progress(value, label, 16); });
}

void workOfFlatFunctions() {
    KELP_progress_global_init(200.0, 37, "Starting", 1);
    work([](double value, const char* label) {
        KELP_progress_global_set_text(label, 16);
        KELP_progress_global(value);
    });
}

void workWithoutTime() {
    work([](double value, const char* label) { KELP_progress(value, 200.0, 20, label, 0.0); });
}

void everyFace() {
    KELP_progress_global_init(100.0, 20, "Building", 1);
    KELP_GlobalProgress.last_blink = 1010.0;
    markPausesAndMoves();
    clock(1010.1);
    for (const double value : {10.0, 25.0, 40.0, 60.0, 80.0, 90.0, 100.0}) {
        KELP_progress_global(value);
    }
    markPastTheBuffers("end of the work");
}

struct NegativeValue {
    const char* name;
    double value;
};

void negativeProgress(const NegativeValue& row) {
    KELP_progress(row.value, 100.0, 20, "Reading", 0.0);
}

void negativeProgressOfDisplay() {
    KELP_progress_global_init(100.0, 20, "Reading", 0);
    KELP_progress_global(-1.0);
}

void negativeProgressOfTool() {
    Arguments line{"tool"};
    CommandLineTool tool(line.argc(), line.argv(), "Does a job");
    tool.initProgress(100.0, "Reading", 20);
    tool.progress(-1.0, "Reading", 20);
}

struct OutputFiles {
    const char* name;
    Tokens tokens;
    Kelp::Option option;
};

void outputFilesOfTool(const OutputFiles& row) {
    Arguments line(row.tokens);
    CommandLineTool tool(line.argc(), line.argv(), "Does a job", row.option);
    std::vector<FilePath> files;
    FilePath file;
    markPastTheBuffers(std::to_string(tool.getOutFiles(files, 0)) + " files");
    markPastTheBuffers(tool.getOutFile(file) ? file.filePath() : "none");
}

}  // namespace

Scenarios progressScreens() {
    Scenarios scenarios = {
        {"progress_bar.flat_functions.MSYSTEM=0", workOfFlatFunctions},
        {"progress_bar.flat_functions.MSYSTEM=", workOfFlatFunctions},
        {"progress_bar_without_time", workWithoutTime},
        {"progress_before_set_up", [] { KELP_progress_global(5.0); }},
        {"progress_negative.display", negativeProgressOfDisplay},
        {"progress_negative.tool.MSYSTEM=MSYS", negativeProgressOfTool},
        {"face.flat_functions", workOfFlatFunctions},
        {"face_every", everyFace},
    };
    const std::vector<CommandLine> work = {
        {"progress_bar.tool.MSYSTEM=MINGW64", {"tool"}},
        {"progress_bar.tool.MSYSTEM=", {"tool"}},
        {"progress_verbose.face", {"tool", "-v"}},
        {"progress_verbose.bar.MSYSTEM=MSYS", {"tool", "--verbose"}},
        {"face.tool", {"tool"}},
    };
    addRows(scenarios, work, workOfTool);
    const std::vector<NegativeValue> negativeValues = {
        {"progress_negative.half", -0.5},
        {"progress_negative.least", -std::numeric_limits<double>::denorm_min()},
        {"progress_negative.infinite", -std::numeric_limits<double>::infinity()},
    };
    addRows(scenarios, negativeValues, negativeProgress);
    const std::vector<OutputFiles> outputFiles = {
        {"progress_output_files.registered", {"tool", "-o=a.txt"}, {"-O", "--Output", "", false}},
        {"progress_output_files_missing.long_form_only", {"tool", "a.txt"}, {"--output", "-o", "", false}},
    };
    addRows(scenarios, outputFiles, outputFilesOfTool);
    return scenarios;
}
