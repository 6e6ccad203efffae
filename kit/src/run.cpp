#include <kelpkit/Tool.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

#include "console.h"
#include "ending_signals.h"
#include "help.h"
#include "standard_output.h"

namespace Kelpkit {

namespace {

constexpr int usageFailure = 2;

/// Returns whether everything printed has arrived, also if the tool wants exceptions of std::cout. The library and C code print
/// through the C library.
bool flushOutput() {
    bool hasArrived = true;
    try {
        hasArrived = flushStandardOutput();
    } catch (const std::ios_base::failure&) {
        hasArrived = false;
    }
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 && hasArrived;
}

/// Prints a line on standard error, at once, so that lines of several processes do not mix. If there is no memory for the line,
/// prints the problem alone.
void printError(const Definition& definition, const char* problem, bool showsHelp) {
    flushOutput();
    try {
        const std::string hint = showsHelp ? " (see " + definition.name + " --help)" : "";
        const std::string line = printable(definition.name + ": " + problem + hint) + "\n";
        std::fwrite(line.data(), 1, line.size(), stderr);
    } catch (const std::bad_alloc&) {
        std::fputs(problem, stderr);
        std::fputs("\n", stderr);
    }
    std::fflush(stderr);
}

int fail(const Definition& definition, const char* problem) {
    printError(definition, problem == nullptr ? "unknown error" : problem, false);
    return EXIT_FAILURE;
}

/// Throws unless everything printed has arrived.
void requireOutput() {
    if (!flushOutput()) {
        checkInterruption();  // A pipe without a reader fails after its signal.
        throw std::runtime_error("standard output cannot be written");
    }
}

int answer(const Definition& definition, int argc, char** argv, int (*work)(CommandLine& line)) {
    if (asksForHelp(argc, argv)) {
        showHelp(definition, argv[0]);
    }
    int status = EXIT_SUCCESS;
    if (asksForVersion(definition, argc, argv)) {
        standardOutput() << definition.name << " " << definition.version << "\n";
    } else {
        CommandLine line(definition, argc, argv);
        if (line.isVerbose()) {
            showProgress(false);
        }
        status = work(line);
        // An input that a signal has cut short looks like one that has ended.
        checkInterruption();
    }
    requireOutput();
    return status;
}

}  // namespace

int run(const Definition& definition, int argc, char** argv, int (*work)(CommandLine& line)) {
    useUtf8Console();
    try {
        // The first file opened would take the descriptor of a closed standard output and receive its text.
        if (!isStandardOutputOpen()) {
            return fail(definition, "standard output is closed");
        }
        return answer(definition, argc, argv, work);
    } catch (const Interruption& interruption) {
        // The reader of "tool | head" has what it wants: no user needs a message.
        if (!isLostReader(interruption.signal)) {
            printError(definition, "interrupted", false);
        }
        endBy(interruption);
    } catch (const UsageError& error) {
        printError(definition, error.what(), true);
        return usageFailure;
    } catch (const std::bad_alloc&) {
        return fail(definition, "out of memory");
    } catch (const std::exception& error) {
        return fail(definition, error.what());
    } catch (...) {
        return fail(definition, "unknown error");
    }
}

}  // namespace Kelpkit
