// kelp-check: checks the definition of a tool that uses the library.

#include <kelpkit/Tool.h>

#include <algorithm>
#include <chrono>
#include <iostream>

#include "checked_tool.h"
#include "hint_option.h"
#include "observed_run.h"
#include "screen_source.h"
#include "shell_words.h"

namespace {

using namespace Kelpkit::programs;
using Kelpkit::rules::Finding;
using Kelpkit::rules::Severity;

/// What is checked.
struct Subject {
    std::string source;  ///< the program, or the file of a saved screen
    bool isSaved;
    std::optional<std::string> name;
    std::optional<std::string> arguments;  ///< of another run, as in a shell
    std::vector<Hint> hints;
};

/// Returns whether shellWords() reads a line to its end: it leaves out a word that is added behind an operator or an open quote.
bool isWhole(const std::string& line) {
    return Kelpkit::shellWords(line + " word").size() == Kelpkit::shellWords(line).size() + 1;
}

Subject readSubject(const Kelpkit::CommandLine& line) {
    Subject subject{line.arguments().front(), line.has("-r"), line.value<std::string>("-n"),
                    line.value<std::string>("-a"), readHints(line)};
    if (subject.isSaved && subject.arguments) {
        line.refuse("-a", "cannot be combined with -r");
    }
    if (subject.arguments && !isWhole(*subject.arguments)) {
        line.refuse("-a", "quote each of ; | & < > # and close each quote");
    }
    return subject;
}

/// Prints a line about a tool on standard error.
void report(const Subject& subject, const std::string& text) {
    std::cerr << Kelpkit::printable("kelp-check: " + subject.source + ": " + text) << "\n";
}

/// Observes a run. Returns what the tool of the screen does in it.
Observation observeRun(const Subject& subject, const HelpScreen& screen, const std::vector<std::string>& arguments,
                       const RunLimits& limits) {
    const Observation all = observe({subject.source, screen.name, arguments}, limits);
    if (!all.isWhole) {
        report(subject, "what was observed is damaged or longer than " + std::to_string(limits.bytes) +
                            " bytes; the rest is not checked");
    }
    return ofScreen(all, screen);
}

/// Observes the runs of a tool, which end within the rest of its time.
Observation observeRuns(const Subject& subject, const HelpScreen& screen, std::chrono::steady_clock::time_point start) {
    RunLimits limits;
    const auto used = std::chrono::steady_clock::now() - start;
    limits.time -= std::min(limits.time, std::chrono::duration_cast<std::chrono::milliseconds>(used));
    Observation observation = observeRun(subject, screen, helpRequest(), limits);
    if (subject.arguments) {
        const Observation other = observeRun(subject, screen, Kelpkit::shellWords(*subject.arguments), RunLimits());
        if (other.tools.empty()) {
            report(subject, "it was not observed in the run with -a, which may have ended early");
        } else if (!asksForOptions(other)) {
            report(subject, "it asked for no option in the run with -a, which may have ended early");
        }
        observation.tools.insert(observation.tools.end(), other.tools.begin(), other.tools.end());
        observation.queries.insert(observation.queries.end(), other.queries.begin(), other.queries.end());
    }
    return observation;
}

/// Checks that a tool of the kit is defined with the name of its program.
void checkDefinedName(const Subject& subject, const std::string& name, std::vector<Finding>& findings) {
    try {
        const std::string defined = definedName(subject.source);
        if (defined != name) {
            findings.push_back({Kelpkit::rules::Id::otherName, defined});
        }
    } catch (const std::runtime_error&) {
        // It does something else under another name.
    }
}

std::vector<Finding> check(const Subject& subject) {
    const auto start = std::chrono::steady_clock::now();
    const HelpScreen screen = readScreen(subject.source, subject.isSaved, subject.name);
    Observation observation;
    std::string problem = subject.isSaved ? "" : observationProblem();
    if (!subject.isSaved && problem.empty()) {
        observation = observeRuns(subject, screen, start);
        problem =
            "the tool cannot be observed: it may be linked statically, or built for another processor or C++ library";
    }
    const std::optional<ObservedTool> observed = findTool(observation, screen);
    if (!subject.isSaved && !observed) {
        report(subject, "only the help screen is checked; " + problem);
    }
    std::vector<Finding> findings =
        Kelpkit::rules::check(checkedTool(screen, subject.hints, observed ? &*observed : nullptr));
    if (isOfShortConstructor(screen.banner)) {
        const auto hasNoExample = [](const Finding& each) { return each.rule == Kelpkit::rules::Id::noExample; };
        findings.erase(std::remove_if(findings.begin(), findings.end(), hasNoExample), findings.end());
    }
    if (observed) {
        checkObservation(*observed, observation, findings);
        if (observed->isOfKit) {
            checkDefinedName(subject, screen.name, findings);
        }
    }
    return findings;
}

int work(Kelpkit::CommandLine& line) {
    const Severity mildest = line.has("-s") ? Severity::warning : Severity::error;
    Kelpkit::NewFile output(std::nullopt);
    bool isFaulty = false;
    for (const Finding& finding : check(readSubject(line))) {
        output.stream() << lineOf(finding) << "\n";
        isFaulty = isFaulty || Kelpkit::rules::severityOf(finding) <= mildest;
    }
    output.publish();
    return isFaulty ? EXIT_FAILURE : EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{
        "kelp-check",
        "Checks the definition of a tool.",
        {{"-a", "--arguments", "also runs TOOL with these, to see what it asks for", Kelpkit::takesValue},
         {"-h", "--help", "shows this help", Kelpkit::isSwitch},
         {"-n", "--name", "the name of the tool (that of its file)", Kelpkit::takesValue},
         {"-r", "--read", "TOOL is a saved help screen, which is read", Kelpkit::isSwitch},
         {"-s", "--strict", "warnings count as errors", Kelpkit::isSwitch},
         {"-t", "--takes", "what options take: n=LINES,o=FILE:file,m=fast|exact,l", Kelpkit::takesValue}},
        {{"TOOL", "the program, which is run with --help", false}},
        "-s bin/firstlines",
        "[-s] [-n=NAME] [-t=HINTS] [-a=ARGUMENTS | -r] TOOL",
        "",
        KELPKIT_VERSION};
    return Kelpkit::run(tool, argc, argv, work);
}
