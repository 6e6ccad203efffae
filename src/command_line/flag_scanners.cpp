#include <kelplib/Kelp.h>

#include <algorithm>
#include <cstdlib>
#include <type_traits>

#include "command_line/argv_tokens.h"
#include "platform/standard_streams.h"
#include "util/leading_int.h"

namespace Kelp {

namespace {

constexpr int verbosityOfScanners = 10;

bool isPositional(const std::string& token) {
    return token.empty() || token.front() != '-';
}

bool matches(const std::string& token, const std::string& flag) {
    if (!isPositional(token) && toLower(token.substr(0, 2)) == toLower(flag)) {
        return true;
    }
    const std::vector<std::string> parts = split(token, '=');
    return !parts.empty() && parts.front() == flag;
}

/// Prints the reason at a high verbosity, and a line end at any.
int reportNoInt(const std::string& reason) {
    if (verbosity() > verbosityOfScanners) {
        standardOutput() << reason;
    }
    standardOutput() << std::endl;
    return 0;
}

template <class T>
T numberIn(const std::string& text) {
    if constexpr (std::is_same_v<T, int>) {
        return leadingInt(text.c_str());
    } else {
        return std::strtod(text.c_str(), nullptr);
    }
}

template <class T>
int getRangeFlag(int argc, char** argv, std::string flag, std::array<T, 2>& range) {
    const int position = getNextFlag(argc, argv, std::move(flag), 0);
    if (position == 0) {
        return 0;
    }
    const std::vector<std::string> parts = split(tokenAt(argc, argv, position), '=');
    if (parts.size() != 2) {
        return 0;
    }
    const std::vector<std::string> limits = split(parts[1], ':');
    if (limits.size() != 2) {
        return 0;
    }
    range = {numberIn<T>(limits[0]), numberIn<T>(limits[1])};
    return 1;
}

}  // namespace

int getNextFlag(int argc, char** argv, std::string flag, int start) {
    for (int i = std::max(start, 0); i < argc; ++i) {
        if (matches(tokenAt(argc, argv, i), flag)) {
            return i;
        }
    }
    return 0;
}

bool getHelpFlag(int argc, char** argv) {
    return getNextFlag(argc, argv, "-h", 0) != 0 || getNextFlag(argc, argv, "--help", 0) != 0;
}

int getStringFlag(int argc, char** argv, std::string flag, std::string& value, int start) {
    const int position = getNextFlag(argc, argv, std::move(flag), start);
    if (position == 0) {
        return 0;
    }
    std::string text = std::string(tokenAt(argc, argv, position)).substr(2);
    if (!text.empty() && text.front() == '=') {
        text.erase(0, 1);
    }
    value = std::move(text);
    return position;
}

int getMultiStringFlag(int argc, char** argv, std::string flag, std::vector<std::string>& values) {
    values.clear();
    std::string value;
    int position = 0;
    while ((position = getStringFlag(argc, argv, flag, value, position)) != 0) {
        values.push_back(value);
        ++position;
    }
    return static_cast<int>(values.size());
}

int getIntFlag(int argc, char** argv, std::string flag, int& value, int start) {
    const int position = getNextFlag(argc, argv, std::move(flag), start);
    if (position < start) {
        return reportNoInt("Kelp::haveStringFlag no flag found. location: " + std::to_string(start));
    }
    // A search from 0 that finds nothing returns 0, so the program path is read.
    const std::vector<std::string> parts = split(tokenAt(argc, argv, position), '=');
    if (parts.size() != 2) {
        return reportNoInt("Kelp::haveIntFlag token split not 2");
    }
    value = leadingInt(parts[1].c_str());
    return position;
}

int getTimeRangeFlag(int argc, char** argv, std::array<double, 2>& range) {
    return getRangeFlag(argc, argv, "-tr", range) != 0 ? 1 : getRangeFlag(argc, argv, "--timerange", range);
}

int getStepRangeFlag(int argc, char** argv, std::array<int, 2>& range) {
    return getRangeFlag(argc, argv, "-sr", range) != 0 ? 1 : getRangeFlag(argc, argv, "--steprange", range);
}

std::string getFirstFileName(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        std::string token = tokenAt(argc, argv, i);
        if (isPositional(token)) {
            return token;
        }
    }
    return "please_provide_file_name";
}

std::vector<std::string> getAllArguments(int argc, char** argv) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        std::string token = tokenAt(argc, argv, i);
        if (isPositional(token)) {
            arguments.push_back(std::move(token));
        }
    }
    return arguments;
}

}  // namespace Kelp
