#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "formats.h"
#include "shell_quoting.h"

namespace Kelpkit::programs {

namespace {

std::string replaceAll(std::string text, char character, std::string_view replacement) {
    std::string result;
    for (const char each : text) {
        result += each == character ? std::string(replacement) : std::string{each};
    }
    return result;
}

constexpr std::string_view ignoringCase = "-M 'm:{a-zA-Z}={A-Za-z}'";

/// _describe of zsh 5.9 never returns for a word of 10,000 characters.
bool canDescribe(const OfferedFlag& flag) {
    return flag.word.size() <= 1000;
}

/// Returns an array of flags and their texts, which a colon separates.
std::string describedFlags(const DescribedTool& tool, std::string_view array, bool valued) {
    std::string script = "    local -a " + std::string(array) + "=(\n";
    for (const OfferedFlag& flag : offeredFlags(tool)) {
        if (canDescribe(flag) && flag.takesValue == valued) {
            const std::string word = replaceAll(replaceAll(flag.word, '\\', "\\\\"), ':', "\\:");
            script += "        " + quotedForShell(word + ':' + flag.text) + '\n';
        }
    }
    return script + "    )\n";
}

/// Returns commands that offer the flags; those with a value without a blank after them.
std::string offerFlags(const DescribedTool& tool) {
    std::string script = describedFlags(tool, "valued", true) + describedFlags(tool, "plain", false);
    for (const OfferedFlag& flag : offeredFlags(tool)) {
        if (!canDescribe(flag)) {
            script += std::string("    compadd ") + (flag.takesValue ? "-S '' " : "");
            script.append(ignoringCase).append(" -- ").append(quotedForShell(flag.word)) += '\n';
        }
    }
    script.append("    _describe -O option valued -S '' ").append(ignoringCase);
    return script.append(" -- plain ").append(ignoringCase) + '\n';
}

std::string offerChoices(const DescribedOption& option) {
    std::string command = "compadd " + std::string(ignoringCase) + " --";
    for (const std::string& choice : option.choices) {
        command += ' ' + quotedForShell(choice);
    }
    return command;
}

/// Returns the command that offers the values of an option.
std::string offerValues(const DescribedOption& option) {
    switch (option.takes) {
        case Takes::unknown:
        case Takes::file:
            return "_files";
        case Takes::folder:
            return "_path_files -/";
        case Takes::choice:
            return offerChoices(option);
        case Takes::text:
            // _message expands "%".
            return "_message " + quotedForShell(replaceAll(inOneRow(option.text), '%', "%%"));
        case Takes::nothing:
            break;
    }
    return "";
}

/// Returns the line that registers the function. zsh reads it as words without quotes. A name that does not fit there is not
/// registered: zsh completes no command whose name needs quotes.
std::string registration(const std::string& name) {
    const bool fits = name.substr(0, 1) != "-" && std::none_of(name.begin(), name.end(), [](char each) {
                          return each == ' ' || each == '=' || isControl(each);
                      });
    return fits ? "#compdef " + name + '\n' : "#autoload\n";
}

}  // namespace

std::string zshCompletion(const DescribedTool& tool) {
    std::string script = registration(tool.name) + '\n';
    script +=
        "if [[ $PREFIX == -*=* ]]; then\n"
        "    local flag=${(L)PREFIX%%=*}=\n"
        "    compset -P 1 '*='\n"
        "    # The shell expands \"~\" only at the start of a word.\n"
        "    if [[ $PREFIX == '~/'* ]]; then\n"
        "        PREFIX=${(q)HOME}/${PREFIX#??}\n"
        "    fi\n"
        "    case $flag in\n";
    for (const OptionLetter& each : optionLetters(tool)) {
        const std::string command = offerValues(*each.option);
        if (!command.empty()) {
            script += "        (" + quotedForShell('-' + each.letter + '=') + '|' + quotedForShell("--" + each.letter) +
                      "*) " + command + " ;;\n";
        }
    }
    script += "        (*) return 1 ;;\n    esac\n";
    script += takesFiles(tool) ? "elif [[ $PREFIX == -* ]]; then\n" : "elif [[ -z $PREFIX || $PREFIX == -* ]]; then\n";
    script += offerFlags(tool);
    script += takesFiles(tool) ? "else\n    _files\nfi\n" : "else\n    return 1\nfi\n";
    return script;
}

}  // namespace Kelpkit::programs
