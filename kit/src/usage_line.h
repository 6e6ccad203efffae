#ifndef KELPKIT_USAGE_LINE_H
#define KELPKIT_USAGE_LINE_H

#include <map>
#include <set>
#include <string>
#include <vector>

namespace Kelpkit {

/// What an option takes after its "=".
enum class Takes {
    unknown,  ///< nothing says it: completions offer the flag without "=", and files after "="
    nothing,
    text,
    file,
    folder,
    choice,
};

struct Value {
    Takes takes = Takes::unknown;
    std::string name;                  ///< "LINES" in -n=LINES
    std::vector<std::string> choices;  ///< of Takes::choice
};

/// Returns what the value in a usage line stands for: "FILE" and "PATH" for a file, "FOLDER", "DIRECTORY" and "DIR" for a folder, in
/// any letter case, also in "<" and ">", "fast|exact" for two choices, and another name for a text. Alternatives in upper case,
/// as in "LINES|all", are names of values unless one of them is not.
Value valueOf(const std::string& text);

struct UsageLine {
    struct Option {
        std::string form;
        Value value;  ///< of Takes::unknown for "-n LINES", which means a value in other programs
    };
    struct Argument {
        bool repeated = false;
        bool optional = true;  ///< also if it is one of several alternatives
    };

    std::vector<Option> options;                ///< every mention
    std::map<std::string, Argument> arguments;  ///< all words that are not options, by their names
};

/// Reads a usage line: "[-n=LINES] [-m=fast|exact] [-f] FIRST [OTHER...] or -l".
/// \param arguments  the names of the tool's arguments: after a bare option, another name in upper case or angles is its value
UsageLine readUsage(const std::string& usage, const std::set<std::string>& arguments);

}  // namespace Kelpkit

#endif
