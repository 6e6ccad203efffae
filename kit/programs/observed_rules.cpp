#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "ascii_case.h"
#include "observation.h"

namespace Kelpkit::programs {

namespace {

using rules::Finding;
using rules::Id;
using Options = std::vector<HelpScreen::Option>;
using ShownOption = std::pair<std::string, std::pair<std::string, std::string>>;

/// Returns the options as the library shows them: the first one of each letter, in the order of the letters.
std::vector<ShownOption> shown(const Options& options) {
    std::map<std::string, ShownOption> byForm;
    for (const HelpScreen::Option& option : options) {
        byForm.try_emplace(lowerCase(option.shortForm), option.shortForm, std::pair(option.longForm, option.text));
    }
    std::vector<ShownOption> result;
    result.reserve(byForm.size());
    for (const auto& [form, option] : byForm) {
        result.push_back(option);
    }
    return result;
}

bool areEqual(const std::vector<ObservedArgument>& observed, const std::vector<HelpScreen::Argument>& arguments) {
    return std::equal(observed.begin(), observed.end(), arguments.begin(), arguments.end(),
                      [](const auto& a, const auto& b) { return a.name == b.name && a.text == b.text; });
}

/// Returns the tools with the options and arguments of a help screen, the last one first.
std::vector<const ObservedTool*> toolsOf(const Observation& observation, const HelpScreen& screen) {
    const std::vector<ShownOption> options = shown(screen.options);
    std::vector<const ObservedTool*> result;
    for (auto tool = observation.tools.rbegin(); tool != observation.tools.rend(); ++tool) {
        if (areEqual(tool->arguments, screen.arguments) && shown(tool->options) == options) {
            result.push_back(&*tool);
        }
    }
    return result;
}

/// Adds what another tool asks for.
void addQuestions(ObservedTool& tool, const ObservedTool& other) {
    tool.names.insert(tool.names.end(), other.names.begin(), other.names.end());
    tool.lateOptions.insert(tool.lateOptions.end(), other.lateOptions.begin(), other.lateOptions.end());
    tool.asksVerbose = tool.asksVerbose || other.asksVerbose;
    tool.asksOutput = tool.asksOutput || other.asksOutput;
}

bool hasShortForm(const Options& options, const std::string& form) {
    return std::any_of(options.begin(), options.end(),
                       [&](const auto& option) { return equalIgnoringCase(option.shortForm, form); });
}

bool hasLongForm(const Options& options, const std::string& form) {
    return std::any_of(options.begin(), options.end(),
                       [&](const auto& option) { return equalIgnoringCase(option.longForm, form); });
}

/// Returns all options that were registered with a tool at last.
Options registered(const ObservedTool& tool) {
    Options options = tool.options;
    options.insert(options.end(), tool.lateOptions.begin(), tool.lateOptions.end());
    return options;
}

/// Whether an option has a name as its long form, or as one of its forms without the dashes.
bool hasOtherName(const Options& options, const std::string& name) {
    return hasLongForm(options, name) || hasShortForm(options, "-" + name) || hasLongForm(options, "--" + name);
}

void checkNames(const ObservedTool& tool, const Options& options, std::vector<Finding>& findings) {
    for (const std::string& name : tool.names) {
        if (!hasShortForm(options, name)) {
            findings.push_back({hasOtherName(options, name) ? Id::askedByLongName : Id::askedUnregistered, name});
        }
    }
}

bool isFlag(const std::string& name) {
    return name.size() > 1 && name.front() == '-';
}

/// Returns the two characters by which the library compares a flag: "-n" for "-number" and "--number".
std::string keyOf(const std::string& flag) {
    const bool isLong = flag.size() > 2 && flag[1] == '-';
    return std::string("-") + flag[isLong ? 2 : 1];
}

/// Checks a query of a value whose names have no dash, so that it finds nothing.
void checkPlainNames(const ReaderQuery& query, const std::set<std::string>& letters, std::vector<Finding>& findings) {
    const auto name = std::find_if(query.names.begin(), query.names.end(),
                                   [&](const std::string& each) { return letters.count(lowerCase("-" + each)) != 0; });
    if (query.isValue && name != query.names.end()) {
        findings.push_back({Id::askedByLongName, *name});
    }
}

/// Checks a query of a reader, which finds a value by a name of two characters, and a token by one that passed the check of the flags.
void checkQuery(const ReaderQuery& query, const std::set<std::string>& letters, std::vector<Finding>& findings) {
    const auto canMatch = [&](const std::string& name) { return isFlag(name) && (!query.isValue || name.size() == 2); };
    const auto isKnown = [&](const std::string& name) { return letters.count(lowerCase(keyOf(name))) != 0; };
    const auto flag = std::find_if(query.names.begin(), query.names.end(), isFlag);
    const auto isFound = [&](const std::string& name) { return canMatch(name) && isKnown(name); };
    if (flag == query.names.end()) {
        checkPlainNames(query, letters, findings);
        return;
    }
    if (std::any_of(query.names.begin(), query.names.end(), isFound)) {
        return;
    }
    const bool isLongName = std::none_of(query.names.begin(), query.names.end(), canMatch) && isKnown(*flag);
    findings.push_back({isLongName ? Id::askedByLongName : Id::askedUnregistered, *flag});
}

void checkQueries(const Observation& observation, std::vector<Finding>& findings) {
    std::set<std::string> letters;
    for (const ObservedTool& tool : observation.tools) {
        for (const HelpScreen::Option& option : registered(tool)) {
            letters.insert(lowerCase(option.shortForm));
        }
    }
    for (const ReaderQuery& query : observation.queries) {
        checkQuery(query, letters, findings);
    }
}

void checkCalls(const ObservedTool& tool, const Options& options, std::vector<Finding>& findings) {
    if (tool.asksVerbose && !hasShortForm(options, "-v")) {
        findings.push_back({Id::noVerbose, ""});
    }
    if (tool.asksOutput && !hasShortForm(options, "-o")) {
        findings.push_back({Id::noOutput, ""});
    }
    if (tool.isFull && tool.ownsCommandLine && tool.arguments.empty()) {
        findings.push_back({Id::fileDemanded, ""});
    }
    for (const HelpScreen::Option& option : tool.lateOptions) {
        findings.push_back({Id::lateOption, option.shortForm.empty() ? option.longForm : option.shortForm});
    }
}

}  // namespace

bool asksForOptions(const Observation& observation) {
    return !observation.queries.empty() ||
           std::any_of(observation.tools.begin(), observation.tools.end(), [](const ObservedTool& tool) {
               return !tool.names.empty() || tool.asksVerbose || tool.asksOutput || !tool.lateOptions.empty();
           });
}

Observation ofScreen(const Observation& observation, const HelpScreen& screen) {
    std::set<std::string> processes;
    for (const ObservedTool* const tool : toolsOf(observation, screen)) {
        processes.insert(tool->process);
    }
    Observation result{{}, {}, observation.isWhole};
    const auto isIts = [&](const auto& each) { return processes.count(each.process) != 0; };
    std::copy_if(observation.tools.begin(), observation.tools.end(), std::back_inserter(result.tools), isIts);
    std::copy_if(observation.queries.begin(), observation.queries.end(), std::back_inserter(result.queries), isIts);
    return result;
}

std::optional<ObservedTool> findTool(const Observation& observation, const HelpScreen& screen) {
    std::optional<ObservedTool> result;
    for (const ObservedTool* const tool : toolsOf(observation, screen)) {
        if (result) {
            addQuestions(*result, *tool);
        } else {
            result = *tool;
        }
    }
    return result;
}

void checkObservation(const ObservedTool& tool, const Observation& observation, std::vector<Finding>& findings) {
    const Options options = registered(tool);
    std::vector<Finding> found;
    checkCalls(tool, options, found);
    checkNames(tool, options, found);
    checkQueries(observation, found);
    std::set<std::pair<Id, std::string>> known;
    for (const Finding& finding : found) {
        if (known.emplace(finding.rule, finding.subject).second) {
            findings.push_back(finding);
        }
    }
}

}  // namespace Kelpkit::programs
