#include <kelplib/Kelp.h>

#include <algorithm>
#include <cstdio>

#include "command_line/flag_key.h"
#include "command_line/token_record.h"
#include "platform/standard_streams.h"
#include "util/ascii_fold.h"
#include "util/escape_sequences.h"

namespace Kelp {

namespace {

/// The queries for positional arguments skip the program path.
int skipProgramPath(int start) {
    return start == 0 ? 1 : start;
}

/// A negative position becomes one after every token.
std::size_t firstPosition(int start) {
    return static_cast<std::size_t>(start);
}

/// Asks the C library: a stream would give the same answer, and its names make the start of every tool longer.
bool canBeOpened(const std::string& file) {
    std::FILE* const opened = std::fopen(file.c_str(), "r");
    if (opened != nullptr) {
        std::fclose(opened);
    }
    return opened != nullptr;
}

}  // namespace

OptionReader::OptionReader(int argc, char** argv) : record(argc, argv) {}

OptionReader::OptionReader(const OptionReader&) = default;
OptionReader::OptionReader(OptionReader&&) noexcept = default;
OptionReader& OptionReader::operator=(OptionReader&&) noexcept = default;
OptionReader::~OptionReader() = default;

OptionReader& OptionReader::operator=(const OptionReader& other) {
    // Copies all members or none.
    return *this = OptionReader(other);
}

int OptionReader::hasOption(std::string shortFlag, std::string longFlag, int start) const {
    const char mark = tokenMark(shortFlag.c_str());
    const char otherMark = tokenMark(longFlag.c_str());
    for (std::size_t i = firstPosition(start); (i = record.find(mark, otherMark, i)) != std::string::npos; ++i) {
        const char* const token = record.at(i).data();
        if (equalIgnoringAsciiCase(token, shortFlag.c_str()) || equalIgnoringAsciiCase(token, longFlag.c_str())) {
            return static_cast<int>(i);
        }
    }
    return 0;
}

int OptionReader::hasOption(const Option& option, int start) const {
    return hasOption(option.longFlag, option.shortFlag, start);
}

int OptionReader::findValue(const char* shortFlag, const char* longFlag, std::string& text, int start) const {
    char mark = keyMark(shortFlag);
    char otherMark = keyMark(longFlag);
    mark = mark == noMark ? otherMark : mark;
    otherMark = otherMark == noMark ? mark : otherMark;
    const std::size_t i = record.find(mark, otherMark, firstPosition(start));
    if (i == std::string::npos) {
        return 0;
    }
    const std::string_view token = record.at(i);
    text = token.substr(std::min(token.find('='), token.size() - 1) + 1);
    return static_cast<int>(i) + 1;
}

template int OptionReader::getValue<std::string>(const char* shortFlag, const char* longFlag, std::string& value,
                                                 int start);
template int OptionReader::getValue<std::string>(std::string shortFlag, std::string longFlag, std::string& value,
                                                 int start);

int OptionReader::getFirstArgument(std::string& argument, int start) const {
    const std::size_t i = record.find(argumentMark, slashMark, firstPosition(skipProgramPath(start)));
    if (i == std::string::npos) {
        return 0;
    }
    argument = record.at(i);
    return static_cast<int>(i);
}

bool OptionReader::getArguments(std::vector<std::string>& arguments, int start) const {
    const std::size_t before = arguments.size();
    const std::size_t first = std::min(firstPosition(skipProgramPath(start)), record.size());
    if (before == 0) {
        arguments.reserve(record.countArguments(first));
    }
    for (std::size_t i = first; i < record.size(); ++i) {
        if (isArgumentMark(record.mark(i))) {
            arguments.emplace_back(record.at(i));
        }
    }
    return arguments.size() > before;
}

void OptionReader::getOptions(std::vector<std::string>& tokens) {
    tokens.clear();
    tokens.reserve(record.size());
    for (std::size_t i = 0; i < record.size(); ++i) {
        tokens.emplace_back(record.at(i));
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
    if (!canBeOpened(file)) {
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
    return record.size() == 0 ? std::string() : std::string(record.at(0));
}

}  // namespace Kelp
