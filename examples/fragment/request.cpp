#include "request.h"

#include <algorithm>
#include <set>
#include <stdexcept>

namespace fragment {

namespace {

constexpr bool takesValue = true;
constexpr bool isSwitch = false;

/// Where a search begins that leaves out the program path.
constexpr int firstToken = 1;

/// The largest size that a file can have. It has to stay below the largest value of its type, see readNumber.
constexpr unsigned long long mostBytes = 9223372036854775807ULL;

/// The library tells flags apart by their first letter and lets "--nubmer=3" pass as "-n". A tool that wants to be
/// strict compares the spelling itself. Letter case never matters.
const Kelp::Option& findOption(const std::string& token, const std::vector<Kelp::Option>& options) {
    const std::string form = Kelp::toLower(token.substr(0, token.find('=')));
    const auto found = std::find_if(options.begin(), options.end(), [&form](const Kelp::Option& option) {
        return form == option.shortFlag || form == option.longFlag;
    });
    if (found == options.end()) {
        throw std::runtime_error(token + ": no such option");
    }
    return *found;
}

void checkFlags(const std::vector<std::string>& tokens, const std::vector<Kelp::Option>& options) {
    std::set<std::string> seen;
    for (std::size_t i = firstToken; i < tokens.size(); ++i) {
        const std::string& token = tokens[i];
        if (token.empty() || token.front() != '-') {
            continue;
        }
        const Kelp::Option& option = findOption(token, options);
        const bool hasValue = token.find('=') != std::string::npos;
        if (hasValue != option.marker) {
            throw std::runtime_error(
                token + (hasValue ? ": this option takes no value" : ": this option needs a value after \"=\""));
        }
        if (!seen.insert(option.shortFlag).second) {
            throw std::runtime_error(option.shortFlag + " is given twice");
        }
    }
}

/// The number that a flag carries; 0 when the flag is not there.
/// The library's conversions report nothing: they make 0 of "abc", 12 of "12abc", a huge number of "-3" and the largest
/// number of a text that is too long. So the text has to be looked at too, and `largest` lies below the largest number.
unsigned long long readNumber(Kelp::OptionReader& reader, const std::string& flag, const std::string& longFlag,
                              unsigned long long largest) {
    std::string text;
    if (reader.getValue(flag, longFlag, text, firstToken) == 0) {
        return 0;
    }
    unsigned long long number = 0;
    reader.getValue(flag, longFlag, number, firstToken);
    const bool digitsOnly = text.find_first_not_of("0123456789") == std::string::npos;
    if (!digitsOnly || number == 0 || number > largest) {
        throw std::runtime_error(flag + "=" + text + ": not a whole number from 1 to " + std::to_string(largest));
    }
    return number;
}

/// The library makes a whole path of the name, with the exception of two kinds of names.
std::string readOutput(Kelp::OptionReader& reader, CommandLineTool& tool) {
    std::string name;
    if (reader.getValue("-o", "--output", name, firstToken) == 0) {
        return {};
    }
    if (name.empty()) {
        throw std::runtime_error("-o=: the name is empty");
    }
    if (name.find('*') != std::string::npos) {
        throw std::runtime_error("-o=" + name + ": no file can be called so, \"*\" stands for a pattern");
    }
    std::vector<FilePath> outputs;
    try {
        tool.getOutFiles(outputs, firstToken);
    } catch (const std::out_of_range&) {
        throw std::runtime_error("-o=" + name + ": a name of one character needs its folder, as in ./" + name);
    }
    // The program's own path may look like this flag too, and would come first.
    std::string output = outputs.back().filePath();
    if (output.empty()) {
        throw std::runtime_error("-o=" + name + ": begins like a drive; write the folder before the name");
    }
    return output;
}

void checkFiles(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        if (file.find('*') != std::string::npos) {
            throw std::runtime_error(file + ": name each file, patterns are not expanded");
        }
    }
}

void checkCombination(const Request& request) {
    const bool pieces = request.pieces != 0;
    const bool pieceBytes = request.pieceBytes != 0;
    if (request.join && (pieces || pieceBytes)) {
        throw std::runtime_error(std::string(pieces ? "-n" : "-s") + " and -j cannot be combined");
    }
    if (request.join && request.output.empty()) {
        throw std::runtime_error("-j needs the name of the file to write, as in -o=FILE");
    }
    if (!request.join && pieces == pieceBytes) {
        throw std::runtime_error(pieces ? "-n and -s cannot be combined"
                                        : "one of -n=PIECES, -s=BYTES and -j is needed");
    }
    if (!request.join && request.files.size() != 1) {
        throw std::runtime_error("one file is cut at a time, not " + std::to_string(request.files.size()));
    }
}

}  // namespace

std::vector<Kelp::Option> acceptedOptions() {
    return {
        {"-n", "--number", "cuts FILE into PIECES fragments of the same size, give or take a byte", takesValue},
        {"-s", "--size", "cuts FILE into fragments of BYTES bytes; the last one has the rest", takesValue},
        {"-o", "--output", "begins the names of the fragments (without it: FILE.part_); with -j, names the joined file",
         takesValue},
        {"-j", "--join", "joins fragments into one file, which -o names", isSwitch},
        {"-f", "--force", "overwrites existing files", isSwitch},
        {"-v", "--verbose", "names every fragment", isSwitch},
        {"-h", "--help", "shows this help", isSwitch},
    };
}

Request readRequest(Kelp::OptionReader& reader, CommandLineTool& tool) {
    std::vector<std::string> tokens;
    reader.getOptions(tokens);
    checkFlags(tokens, tool.getOptions());

    Request request;
    request.pieces = readNumber(reader, "-n", "--number", mostFragments);
    request.pieceBytes = readNumber(reader, "-s", "--size", mostBytes);
    request.output = readOutput(reader, tool);
    request.join = reader.hasOption("-j", "--join", firstToken) != 0;
    request.overwrite = reader.hasOption("-f", "--force", firstToken) != 0;
    reader.getArguments(request.files, firstToken);
    checkFiles(request.files);
    checkCombination(request);
    return request;
}

}  // namespace fragment
