#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "formats.h"
#include "shell_quoting.h"

namespace Kelpkit::programs {

namespace {

constexpr std::string_view reading =
    R"script(# Sets word to the word up to the cursor, without quotes; flag to its part up to "="; letter to the first letter of the flag; value
# to the rest; and paths to the files and folders that fish itself does not find: it completes what follows the last ":" or "=",
# and fish 4.0 completes no value in quotes.
function _ID_read --no-scope-shadowing
    set word (commandline -ct | string collect)
    set paths (string match -r -- '["\']' "$word")
    set word (string unescape -- "$word" | string collect)
    set flag (string match -r -- '(?s)^-[^=]*=' "$word" | string collect)
    set letter (string replace -rf -- '(?s)^-(?:(.)|-(.).*)=$' '$1$2' "$flag" | string lower)
    set value (string replace -- "$flag" '' "$word" | string collect)
    set -q paths[1]; or string match -qr -- '[:=]' "$value"; and set paths "$value"*
end

# Prints the flag and each path. fish reads one word a line, up to a tab.
function _ID_paths
    for path in $argv[2..]
        string match -qr -- '[\n\t]' "$path"; and continue
        test -d "$path"; and not string match -q -- '*/' "$path"; and set path "$path/"
        printf '%s\n' "$argv[1]$path"
    end
end

function _ID_takes_files --no-scope-shadowing
)script";

constexpr std::string_view offering = R"script(end

function _ID_wants_fish
    set -l word
    set -l flag
    set -l letter
    set -l value
    set -l paths
    _ID_read
    not set -q paths[1]; and _ID_takes_files
end

function _ID
    set -l word
    set -l flag
    set -l letter
    set -l value
    set -l paths
    _ID_read
    set -q paths[1]; and _ID_takes_files; and _ID_paths "$flag" $paths
    if test -n "$flag"
)script";

/// Returns whether fish can offer a word. It reads one word a line, up to a tab.
bool canOffer(const std::string& word) {
    return inOneRow(word) == word;
}

std::string quotedLetters(const DescribedTool& tool, const std::vector<Takes>& kinds) {
    std::string letters;
    for (const OptionLetter& each : optionLetters(tool)) {
        if (std::find(kinds.begin(), kinds.end(), each.option->takes) != kinds.end()) {
            letters += (letters.empty() ? "" : " ") + quotedForFish(each.letter);
        }
    }
    return letters;
}

/// Returns a line that runs a command if the letter is one of some.
std::string whenLetter(const std::string& letters, const std::string& command) {
    return "        contains -- \"$letter\" " + letters + "; and " + command + '\n';
}

/// Returns the body of the function that decides whether a file is expected. fish expands "~" only at the start of a word.
std::string fileCondition(const DescribedTool& tool) {
    const std::string letters = quotedLetters(tool, {Takes::unknown, Takes::file});
    const std::string values = letters.empty() ? "false"
                                               : "contains -- \"$letter\" " + letters +
                                                     "; and not string match -q -- '*=~*' (commandline -ct)";
    const std::string arguments = takesFiles(tool) ? "not string match -q -- '-*' \"$word\"" : "false";
    return "    if test -n \"$flag\"\n        " + values + "\n    else\n        " + arguments + "\n    end\n";
}

std::string offerChoices(const OptionLetter& each) {
    std::string words;
    for (const std::string& choice : each.option->choices) {
        words += canOffer(choice) ? " \"$flag\"" + quotedForFish(choice) : "";
    }
    return words.empty() ? "" : whenLetter(quotedForFish(each.letter), "printf '%s\\n'" + words);
}

std::string offerValues(const DescribedTool& tool, const std::string& identifier) {
    std::string script;
    for (const OptionLetter& each : optionLetters(tool)) {
        script += offerChoices(each);
    }
    const std::string folders = quotedLetters(tool, {Takes::folder});
    if (!folders.empty()) {
        script += "        set -l folders \"$value\"*/\n";
        script += whenLetter(folders, named("_ID_paths \"$flag\" $folders", identifier));
    }
    return script;
}

std::string offerFlags(const DescribedTool& tool) {
    std::string script;
    for (const OfferedFlag& flag : offeredFlags(tool)) {
        if (canOffer(flag.word)) {
            script += "        printf '%s\\t%s\\n' " + quotedForFish(flag.word) + ' ' + quotedForFish(flag.text) + '\n';
        }
    }
    return script;
}

}  // namespace

std::string fishCompletion(const DescribedTool& tool) {
    const std::string identifier = identifierOf(tool.name);
    const std::string complete = "complete -c " + quotedForFish(tool.name);
    return named(reading, identifier) + fileCondition(tool) + named(offering, identifier) +
           offerValues(tool, identifier) +
           (takesFiles(tool) ? "    else if string match -q -- '-*' \"$word\"\n"
                             : "    else if string match -qr -- '^(-|$)' \"$word\"\n") +
           offerFlags(tool) + "    end\nend\n\n" + complete + " -f\n" + complete +
           named(" -n _ID_wants_fish -F\n", identifier) + complete + named(" -a '(_ID)'\n", identifier);
}

}  // namespace Kelpkit::programs
