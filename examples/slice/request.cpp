#include <kelpkit/CommandLine.h>

#include <algorithm>
#include <set>

#include "slice.h"

namespace slice {

namespace {

/// The largest line number and count. It is below the largest int, because the library turns every larger number into that.
constexpr int maxSteps = 2000000000;

struct Flag {
    const char* shortForm;
    const char* longForm;  ///< empty if there is none
    bool hasValue;
    bool repeats;
};

constexpr std::array<Flag, 8> knownFlags{{
    {"-tr", "--timerange", true, false},
    {"-sr", "--steprange", true, false},
    {"-r", "", false, false},
    {"-n", "", true, false},
    {"-o", "", true, false},
    {"-f", "", false, false},
    {"-i", "", true, true},
    {"-h", "--help", false, true},
}};

[[noreturn]] void refuse(const std::string& token, const std::string& problem) {
    throw Kelpkit::UsageError(token + ": " + problem);
}

/// The scanners read "-output=x" as -o with the value "utput=x", read "-hist" as -h, and ignore -TR=1:2. This function accepts
/// only the exact spelling of a flag. Like the scanners, it ignores the case of one-letter flags.
const Flag& findFlag(const std::string& token) {
    const std::size_t sign = token.find('=');
    const std::string form = token.substr(0, sign);
    const std::string shortForm = form.size() == 2 ? Kelp::toLower(form) : form;
    const auto* const found = std::find_if(knownFlags.begin(), knownFlags.end(), [&](const Flag& flag) {
        return shortForm == flag.shortForm || form == flag.longForm;
    });
    if (found == knownFlags.end()) {
        refuse(token, "no such flag");
    }
    if (found->hasValue && token.size() <= form.size() + 1) {
        refuse(token, "this flag needs a value after \"=\"");
    }
    if (!found->hasValue && sign != std::string::npos) {
        refuse(token, "this flag takes no value");
    }
    return *found;
}

/// Reads a value with a scanner: returns whether the flag is on the command line. The scanners are not strict enough, as they
/// read "1x:2" and "1::2" as 1:2, so the kit checks the value first.
template <class T, class... Limits>
bool hasValue(int argc, char** argv, const Flag& flag, const Limits&... limits) {
    int position = Kelp::getNextFlag(argc, argv, flag.shortForm, 1);
    position = position != 0 ? position : Kelp::getNextFlag(argc, argv, flag.longForm, 1);
    const std::string token = argv[position];
    const auto read = readValue(token.substr(token.find('=') + 1), Kelpkit::Type<T>{}, limits...);
    if (position != 0 && !read) {
        refuse(token, "not " + read.expectation());
    }
    return position != 0;
}

/// Reads -tr and -sr into the request.
void readRange(int argc, char** argv, Request& request) {
    request.byTime = hasValue<std::tuple<double, double>>(argc, argv, knownFlags[0]);
    const bool bySteps = hasValue<std::tuple<unsigned int, unsigned int>>(argc, argv, knownFlags[1],
                                                                          Kelpkit::between(1U, unsigned{maxSteps}));
    if (request.byTime && bySteps) {
        throw Kelpkit::UsageError("-tr and -sr cannot be combined");
    }
    if (!request.byTime && !bySteps) {
        // Without a file, getFirstFileName() would return a text of the library.
        const bool named = !Kelp::getAllArguments(argc, argv).empty();
        throw Kelpkit::UsageError("which lines? Give -tr or -sr, as in: slice -sr=1:10 " +
                                  (named ? Kelp::getFirstFileName(argc, argv) : "FILE"));
    }
    Kelp::getTimeRangeFlag(argc, argv, request.times);
    Kelp::getStepRangeFlag(argc, argv, request.steps);
}

}  // namespace

void checkFlags(int argc, char** argv) {
    std::set<std::string> seen;
    for (int i = 1; i < argc; ++i) {
        const std::string token = argv[i];
        if (token.empty()) {
            throw Kelpkit::UsageError("a file name is empty");
        }
        if (token.front() == '=') {
            // Some scanners skip the "=" and would read "=-tr=1:2" as a flag.
            refuse(token, "a name that begins with \"=\" needs its folder, as in ./" + token);
        }
        const Flag* const flag = token.front() == '-' ? &findFlag(token) : nullptr;
        if (flag != nullptr && !flag->repeats && !seen.insert(flag->shortForm).second) {
            throw Kelpkit::UsageError(std::string(flag->shortForm) + " is given twice");
        }
    }
}

Request readRequest(int argc, char** argv) {
    Request request;
    readRange(argc, argv, request);
    // Without the flag getIntFlag would print an empty line.
    if (hasValue<int>(argc, argv, knownFlags[3], Kelpkit::between(1, maxSteps))) {
        Kelp::getIntFlag(argc, argv, "-n", request.maxLines, 1);
    }
    request.relative = Kelp::getNextFlag(argc, argv, "-r", 1) != 0;
    std::string output;
    if (Kelp::getStringFlag(argc, argv, "-o", output, 1) != 0) {
        request.output = output;
    }
    request.overwrite = Kelp::getNextFlag(argc, argv, "-f", 1) != 0;
    Kelp::getMultiStringFlag(argc, argv, "-i", request.inputs);
    const std::vector<std::string> arguments = Kelp::getAllArguments(argc, argv);
    request.inputs.insert(request.inputs.end(), arguments.begin(), arguments.end());
    if (request.inputs.empty()) {
        throw Kelpkit::UsageError("no input file is named");
    }
    if (request.relative && !request.byTime) {
        throw Kelpkit::UsageError("-r requires -tr");
    }
    if (request.overwrite && !request.output) {
        throw Kelpkit::UsageError("-f requires -o");
    }
    return request;
}

}  // namespace slice
