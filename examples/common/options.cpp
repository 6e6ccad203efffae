#include "options.h"

#include <algorithm>
#include <set>
#include <stdexcept>

#include "numbers.h"

namespace common {

namespace {

/// Compares the whole spelling of a flag, ignoring letter case. The library compares only the first letter and accepts
/// "--nubmer=3" as -n.
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

}  // namespace

void checkFlags(Kelp::OptionReader& reader, const std::vector<Kelp::Option>& options) {
    std::vector<std::string> tokens;
    reader.getOptions(tokens);
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

// The conversions of the library report no errors: they read "abc" as 0, "12abc" as 12, "-3" as a huge number, and a text that
// is too long as the largest number. So this checks the text too, and `largest` is below the largest number.
unsigned long long readCount(Kelp::OptionReader& reader, const std::string& flag, const std::string& longFlag,
                             unsigned long long largest) {
    std::string text;
    if (reader.getValue(flag, longFlag, text, firstToken) == 0) {
        return 0;
    }
    unsigned long long number = 0;
    reader.getValue(flag, longFlag, number, firstToken);
    if (!isDigits(text) || number == 0 || number > largest) {
        throw std::runtime_error(flag + "=" + text + ": not a whole number from 1 to " + std::to_string(largest));
    }
    return number;
}

// The library completes the name to a full path, except for two kinds of names.
std::string readOutput(Kelp::OptionReader& reader, CommandLineTool& tool) {
    std::string name;
    if (reader.getValue("-o", "--output", name, firstToken) == 0) {
        return {};
    }
    if (name.empty()) {
        throw std::runtime_error("-o=: the name is empty");
    }
    if (name.find('*') != std::string::npos) {
        throw std::runtime_error("-o=" + name +
                                 ": this tool refuses names with \"*\", which would be taken for patterns");
    }
    std::vector<FilePath> outputs;
    try {
        tool.getOutFiles(outputs, firstToken);
    } catch (const std::out_of_range&) {
        throw std::runtime_error("-o=" + name + ": a name of one character needs its folder, as in ./" + name);
    }
    // The program path may look like this flag too; then it comes first.
    std::string output = outputs.back().filePath();
    if (output.empty()) {
        throw std::runtime_error("-o=" + name + ": begins like a drive; write the folder before the name");
    }
    return output;
}

}  // namespace common
