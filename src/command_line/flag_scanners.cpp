#include <kelplib/Kelp.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <type_traits>

#include "command_line/argv_tokens.h"
#include "platform/standard_streams.h"
#include "util/leading_int.h"

namespace Kelp {

namespace {

constexpr int verbosityOfScanners = 10;

bool isPositional(const char* token) {
    return *token != '-';
}

/// A flag, for comparison with many tokens.
class Flag {
public:
    explicit Flag(const std::string& text) : name(text), lowered(toLower(text)) {}

    bool matches(const char* token) const {
        return isBeginningOf(token) || isFirstPieceOf(token);
    }

private:
    /// Compares with the first two characters of a token that begins with "-", in any letter case.
    bool isBeginningOf(const char* token) const {
        const std::size_t size = token[0] == '\0' || token[1] == '\0' ? 1 : 2;
        return !isPositional(token) && lowered.size() == size && lowered[0] == lower(token[0]) &&
               (size == 1 || lowered[1] == lower(token[1]));
    }

    /// Compares with the first non-empty piece of a token between "=".
    bool isFirstPieceOf(const char* token) const {
        while (*token == '=') {
            ++token;
        }
        for (const char character : name) {
            if (*token != character || character == '=' || character == '\0') {
                return false;
            }
            ++token;
        }
        return !name.empty() && (*token == '\0' || *token == '=');
    }

    static char lower(char character) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }

    std::string name;
    std::string lowered;
};

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
    const Flag wanted(flag);
    for (int i = std::max(start, 0); i < argc; ++i) {
        if (wanted.matches(tokenAt(argc, argv, i))) {
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
        const char* const token = tokenAt(argc, argv, i);
        if (isPositional(token)) {
            return token;
        }
    }
    return "please_provide_file_name";
}

std::vector<std::string> getAllArguments(int argc, char** argv) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        const char* const token = tokenAt(argc, argv, i);
        if (isPositional(token)) {
            arguments.emplace_back(token);
        }
    }
    return arguments;
}

}  // namespace Kelp
