#include <kelplib/Kelp.h>

#include <algorithm>
#include <cstring>
#include <fstream>

#include "frame/token_mark.h"
#include "platform/standard_streams.h"
#include "util/ascii_fold.h"
#include "util/escape_sequences.h"
#include "util/tokens.h"

namespace Kelp {

namespace {

/// The queries for positional arguments never look at the program path.
int skipProgramPath(int start) {
    return start == 0 ? 1 : start;
}

/// Positions are compared as unsigned numbers: a negative one lies behind every token.
std::size_t firstPosition(int start) {
    return static_cast<std::size_t>(start);
}

}  // namespace

OptionReader::OptionReader(int argc, char** argv) {
    checkTokens(argc, argv);
    const auto count = static_cast<std::size_t>(std::max(argc, 0));
    begins.resize(count + 1);
    for (std::size_t i = 0; i < count; ++i) {
        begins[i + 1] = begins[i] + std::strlen(argv[i]) + 1;
    }
    tokens.resize(begins[count]);
    marks.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        std::memcpy(&tokens[begins[i]], argv[i], begins[i + 1] - begins[i]);
        marks[i] = tokenMark(argv[i]);
    }
}

OptionReader::OptionReader(const OptionReader&) = default;
OptionReader::OptionReader(OptionReader&&) noexcept = default;
OptionReader& OptionReader::operator=(OptionReader&&) noexcept = default;
OptionReader::~OptionReader() = default;

OptionReader& OptionReader::operator=(const OptionReader& other) {
    // Whole or not at all: the members belong together.
    return *this = OptionReader(other);
}

int OptionReader::hasOption(std::string shortFlag, std::string longFlag, int start) const {
    const char one = tokenMark(shortFlag.c_str());
    const char other = tokenMark(longFlag.c_str());
    for (std::size_t i = firstPosition(start); (i = findMark(marks, one, other, i)) != std::string::npos; ++i) {
        const char* const found = tokenAt(tokens, begins, i).data();
        if (equalIgnoringAsciiCase(found, shortFlag.c_str()) || equalIgnoringAsciiCase(found, longFlag.c_str())) {
            return static_cast<int>(i);
        }
    }
    return 0;
}

int OptionReader::hasOption(const Option& option, int start) const {
    return hasOption(option.longFlag, option.shortFlag, start);
}

int OptionReader::findValue(const char* shortFlag, const char* longFlag, std::string& text, int start) const {
    char one = keyMark(shortFlag);
    char other = keyMark(longFlag);
    one = one == noMark ? other : one;
    other = other == noMark ? one : other;
    const std::size_t i = findMark(marks, one, other, firstPosition(start));
    if (i == std::string::npos) {
        return 0;
    }
    const std::string_view found = tokenAt(tokens, begins, i);
    text = found.substr(std::min(found.find('='), found.size() - 1) + 1);
    return static_cast<int>(i) + 1;
}

template int OptionReader::getValue<std::string>(const char* shortFlag, const char* longFlag, std::string& value,
                                                 int start);
template int OptionReader::getValue<std::string>(std::string shortFlag, std::string longFlag, std::string& value,
                                                 int start);

int OptionReader::getFirstArgument(std::string& argument, int start) const {
    const std::size_t i = findMark(marks, markOfArgument, markOfSlash, firstPosition(skipProgramPath(start)));
    if (i == std::string::npos) {
        return 0;
    }
    argument = tokenAt(tokens, begins, i);
    return static_cast<int>(i);
}

bool OptionReader::getArguments(std::vector<std::string>& arguments, int start) const {
    const std::size_t before = arguments.size();
    const std::size_t first = std::min(firstPosition(skipProgramPath(start)), marks.size());
    if (before == 0) {
        const auto begin = marks.begin() + static_cast<std::ptrdiff_t>(first);
        arguments.reserve(static_cast<std::size_t>(std::count_if(begin, marks.end(), isArgumentMark)));
    }
    for (std::size_t i = first; i < marks.size(); ++i) {
        if (isArgumentMark(marks[i])) {
            arguments.emplace_back(tokenAt(tokens, begins, i));
        }
    }
    return arguments.size() > before;
}

void OptionReader::getOptions(std::vector<std::string>& out) {
    out.clear();
    out.reserve(marks.size());
    for (std::size_t i = 0; i < marks.size(); ++i) {
        out.emplace_back(tokenAt(tokens, begins, i));
    }
}

bool OptionReader::checkFiles(std::string& file, int start) {
    if (getFirstArgument(file, start) == 0) {
        standardOutput() << "\n"
                         << escape::red << "File missing, please insert the name of the file." << escape::reset << "\n"
                         << std::endl;
        return false;
    }
    if (file == "." || file.find('*') != std::string::npos) {
        return true;
    }
    if (!std::ifstream(file).is_open()) {
        standardOutput() << "File " << file << " doesn't exist. Please insert a valid file name." << std::endl;
        return false;
    }
    return true;
}

void OptionReader::setVerbose(bool on) {
    verbose = on;
}

bool OptionReader::getVerbose() const {
    return verbose;
}

std::string OptionReader::getNameTool() const {
    return marks.empty() ? std::string() : std::string(tokenAt(tokens, begins, 0));
}

}  // namespace Kelp
