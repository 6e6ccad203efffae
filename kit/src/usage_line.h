#ifndef KELPKIT_USAGE_LINE_H
#define KELPKIT_USAGE_LINE_H

#include <map>
#include <set>
#include <string>
#include <string_view>
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
    std::string name;                  ///< "LINES" in -n=LINES and in -n=LINES|all
    std::vector<std::string> choices;  ///< of Takes::choice
};

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view valueOpenings = "[({<'\"";  ///< may enclose a value
constexpr std::string_view valueClosings = "])}>'\"";

/// Returns a text without blanks around it and without the brackets or quotes that enclose all of it.
std::string unwrapped(std::string_view text);

/// Returns what the value in a usage line stands for, in any letter case: a file if its name ends with FILE, FILENAME, PATH, INPUT
/// or OUTPUT, a folder if it ends with FOLDER, DIRECTORY or DIR, also with "S" after them, and another name for a text.
/// "fast|exact" are two choices. Alternatives in upper case or in "<" and ">", as in "LINES|all", are names of values.
Value valueOf(const std::string& text);

struct UsageLine {
    struct Option {
        std::string form;
        Value value;  ///< of Takes::unknown for "-n LINES" and "-m fast", which mean a value in other programs
    };
    struct Argument {
        bool repeated = false;
        bool optional = true;  ///< also if it is one of several alternatives
    };

    std::vector<Option> options;                ///< every mention
    std::map<std::string, Argument> arguments;  ///< all words that are neither options nor values, by their names
};

/// Reads a usage line: "[-n=LINES] [-m=fast|exact] [-f] FIRST [OTHER...] or -l".
/// \param arguments  the names of the tool's arguments: another word is a value in "-n LINES" and in "-m=fast | exact"
UsageLine readUsage(const std::string& usage, const std::set<std::string>& arguments);

}  // namespace Kelpkit

#endif
