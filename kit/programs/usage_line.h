#ifndef KELPKIT_PROGRAMS_USAGE_LINE_H
#define KELPKIT_PROGRAMS_USAGE_LINE_H

#include <map>
#include <string>
#include <vector>

namespace Kelpkit::programs {

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
    struct Argument {
        bool repeated = false;
        bool optional = true;
    };

    std::map<std::string, Value> options;       ///< by their forms in lower case
    std::map<std::string, Argument> arguments;  ///< all words that are not options, by their names
};

/// Reads a usage line: "[-n=LINES] [-m=fast|exact] [-f] FIRST [OTHER...]". The first mention of an option counts.
UsageLine readUsage(const std::string& usage);

}  // namespace Kelpkit::programs

#endif
