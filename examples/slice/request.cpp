#include "request.h"

#include <kelplib/Kelp.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <stdexcept>

#include "../common/numbers.h"

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

constexpr Flag timeRange{"-tr", "--timerange", true, false};
constexpr Flag stepRange{"-sr", "--steprange", true, false};
constexpr std::array<Flag, 8> knownFlags{{
    timeRange,
    stepRange,
    {"-r", "", false, false},
    {"-n", "", true, false},
    {"-o", "", true, false},
    {"-f", "", false, false},
    {"-i", "", true, true},
    {"-h", "--help", false, true},
}};

/// The scanners read "-output=x" as -o with the value "utput=x", read "-hist" as -h, and ignore -TR=1:2. This function accepts
/// only the exact spelling of a flag. Like the scanners, it ignores the case of one-letter flags.
const Flag& findFlag(const std::string& token) {
    const std::string form = token.substr(0, token.find('='));
    const std::string shortForm = form.size() == 2 ? Kelp::toLower(form) : form;
    const auto* const found = std::find_if(knownFlags.begin(), knownFlags.end(), [&](const Flag& flag) {
        return shortForm == flag.shortForm || form == flag.longForm;
    });
    if (found == knownFlags.end()) {
        throw std::runtime_error(token + ": no such flag");
    }
    return *found;
}

void checkValue(const std::string& token, const Flag& flag) {
    const std::size_t sign = token.find('=');
    if (flag.hasValue && (sign == std::string::npos || sign + 1 == token.size())) {
        throw std::runtime_error(token + ": this flag needs a value after \"=\"");
    }
    if (!flag.hasValue && sign != std::string::npos) {
        throw std::runtime_error(token + ": this flag takes no value");
    }
}

int positionOf(int argc, char** argv, const Flag& flag) {
    const int position = Kelp::getNextFlag(argc, argv, flag.shortForm, 1);
    return position != 0 ? position : Kelp::getNextFlag(argc, argv, flag.longForm, 1);
}

/// Returns the text after the "=" of a flag that is given.
std::string valueOf(int argc, char** argv, const Flag& flag) {
    const std::string token = argv[positionOf(argc, argv, flag)];
    return token.substr(token.find('=') + 1);
}

/// Whether a text is FROM:TO. The scanners are not strict enough: they read "1x:2" and "1::2" as 1:2.
template <class IsEnd>
bool isRange(const std::string& text, IsEnd isEnd) {
    const std::size_t colon = text.find(':');
    return colon != std::string::npos && isEnd(text.substr(0, colon)) && isEnd(text.substr(colon + 1));
}

bool isTime(const std::string& text) {
    const std::optional<double> number = common::decimalNumber(text);
    return number.has_value() && std::isfinite(*number);
}

template <class Value>
void requireOrder(const std::string& given, const std::array<Value, 2>& range) {
    if (range[0] > range[1]) {
        throw std::runtime_error(given + ": the range ends before it begins");
    }
}

void readTimes(int argc, char** argv, Request& request) {
    const std::string text = valueOf(argc, argv, timeRange);
    if (!isRange(text, isTime) || Kelp::getTimeRangeFlag(argc, argv, request.times) == 0) {
        throw std::runtime_error("-tr=" + text + ": not two numbers as in -tr=0.5:12");
    }
    requireOrder("-tr=" + text, request.times);
}

void readSteps(int argc, char** argv, Request& request) {
    const std::string text = valueOf(argc, argv, stepRange);
    if (!isRange(text, common::isDigits) || Kelp::getStepRangeFlag(argc, argv, request.steps) == 0) {
        throw std::runtime_error("-sr=" + text + ": not two line numbers as in -sr=10:20");
    }
    if (std::min(request.steps[0], request.steps[1]) < 1 || std::max(request.steps[0], request.steps[1]) > maxSteps) {
        throw std::runtime_error("-sr=" + text + ": line numbers go from 1 to " + std::to_string(maxSteps));
    }
    requireOrder("-sr=" + text, request.steps);
}

void readRange(int argc, char** argv, Request& request) {
    const bool steps = positionOf(argc, argv, stepRange) != 0;
    request.byTime = positionOf(argc, argv, timeRange) != 0;
    if (request.byTime && steps) {
        throw std::runtime_error("-tr and -sr cannot be combined");
    }
    if (!request.byTime && !steps) {
        // Without a file, getFirstFileName() would return a text of the library.
        const bool named = !Kelp::getAllArguments(argc, argv).empty();
        throw std::runtime_error("which lines? Give -tr or -sr, as in: slice -sr=1:10 " +
                                 (named ? Kelp::getFirstFileName(argc, argv) : "FILE"));
    }
    if (request.byTime) {
        readTimes(argc, argv, request);
    } else {
        readSteps(argc, argv, request);
    }
}

void readCount(int argc, char** argv, Request& request) {
    // Without the flag getIntFlag would print an empty line.
    if (Kelp::getNextFlag(argc, argv, "-n", 1) == 0) {
        return;
    }
    std::string text;
    Kelp::getStringFlag(argc, argv, "-n", text, 1);
    if (common::isDigits(text)) {
        Kelp::getIntFlag(argc, argv, "-n", request.maxLines, 1);
    }
    if (request.maxLines < 1 || request.maxLines > maxSteps) {
        throw std::runtime_error("-n=" + text + ": not a whole number from 1 to " + std::to_string(maxSteps));
    }
}

void readInputs(int argc, char** argv, Request& request) {
    Kelp::getMultiStringFlag(argc, argv, "-i", request.inputs);
    const std::vector<std::string> arguments = Kelp::getAllArguments(argc, argv);
    request.inputs.insert(request.inputs.end(), arguments.begin(), arguments.end());
    if (request.inputs.empty()) {
        throw std::runtime_error("no input file is named");
    }
}

void checkName(const std::string& name) {
    if (name.empty()) {
        throw std::runtime_error("a file name is empty");
    }
    if (name.front() == '=') {
        // Some scanners skip the "=" and would read "=-tr=1:2" as a flag.
        throw std::runtime_error(name + ": a name that begins with \"=\" needs its folder, as in ./" + name);
    }
}

}  // namespace

void checkFlags(int argc, char** argv) {
    std::set<std::string> seen;
    for (int i = 1; i < argc; ++i) {
        const std::string token = argv[i];
        if (token.empty() || token.front() != '-') {
            checkName(token);
            continue;
        }
        const Flag& flag = findFlag(token);
        checkValue(token, flag);
        if (!flag.repeats && !seen.insert(flag.shortForm).second) {
            throw std::runtime_error(std::string(flag.shortForm) + " is given twice");
        }
    }
}

Request readRequest(int argc, char** argv) {
    Request request;
    readRange(argc, argv, request);
    readCount(argc, argv, request);
    request.relative = Kelp::getNextFlag(argc, argv, "-r", 1) != 0;
    Kelp::getStringFlag(argc, argv, "-o", request.output, 1);
    request.overwrite = Kelp::getNextFlag(argc, argv, "-f", 1) != 0;
    readInputs(argc, argv, request);
    if (request.relative && !request.byTime) {
        throw std::runtime_error("-r requires -tr");
    }
    if (request.overwrite && request.output.empty()) {
        throw std::runtime_error("-f requires -o");
    }
    return request;
}

}  // namespace slice
