#include "shell_quoting.h"

#include <algorithm>
#include <cstddef>
#include <set>

namespace Kelpkit::programs {

namespace {

bool isAlphanumeric(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z');
}

char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Returns the digits of a byte in a base that is a power of two.
std::string digits(char character, unsigned bitsPerDigit, int count) {
    auto value = static_cast<unsigned char>(character);
    std::string result;
    for (int i = 0; i < count; ++i) {
        result.insert(result.begin(), "0123456789abcdef"[value & ((1U << bitsPerDigit) - 1)]);
        value = static_cast<unsigned char>(value >> bitsPerDigit);
    }
    return result;
}

/// Returns the first character, all bytes of it in UTF-8.
std::string_view firstCharacter(std::string_view text) {
    std::size_t size = std::min<std::size_t>(text.size(), 1);
    while (size < text.size() && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80) {
        ++size;
    }
    return text.substr(0, size);
}

std::string letterOf(const DescribedOption& option) {
    const std::string_view form = option.shortForm.empty() ? option.longForm : option.shortForm;
    std::string letter(firstCharacter(form.substr(std::min(form.find_first_not_of('-'), form.size()))));
    std::transform(letter.begin(), letter.end(), letter.begin(), lower);
    return letter;
}

bool takesValue(Takes takes) {
    return takes != Takes::unknown && takes != Takes::nothing;
}

}  // namespace

bool isControl(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

std::string quotedForShell(std::string_view text) {
    // Plain quotes would do for "$" and "`", but shellcheck takes them for a mistake.
    const bool plain = std::none_of(text.begin(), text.end(), [](char each) {
        return isControl(each) || each == '\'' || each == '$' || each == '`' || each == '\\';
    });
    std::string result = plain ? "'" : "$'";
    for (const char each : text) {
        if (isControl(each)) {
            result += each == '\0' ? "" : '\\' + digits(each, 3, 3);
        } else {
            result += !plain && (each == '\'' || each == '\\') ? std::string{'\\', each} : std::string{each};
        }
    }
    return result + '\'';
}

std::string quotedForFish(std::string_view text) {
    std::string result = "'";
    for (const char each : text) {
        if (each == '\'' || each == '\\') {
            result += '\\';
        }
        if (each != '\0') {
            result += each;
        }
    }
    return result + '\'';
}

std::string identifierOf(std::string_view toolName) {
    std::string result = "kelp_";
    for (const char each : toolName) {
        result += isAlphanumeric(each) ? std::string{each} : '_' + digits(each, 4, 2);
    }
    return result;
}

std::string named(std::string_view script, const std::string& identifier) {
    constexpr std::string_view placeholder = "_ID";
    std::string result;
    std::size_t found = 0;
    while ((found = script.find(placeholder)) != std::string_view::npos) {
        result.append(script.substr(0, found)).append("_").append(identifier);
        script.remove_prefix(found + placeholder.size());
    }
    return result.append(script);
}

std::string inOneRow(std::string text) {
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

std::vector<OfferedFlag> offeredFlags(const DescribedTool& tool) {
    std::vector<OfferedFlag> flags;
    for (const DescribedOption& option : tool.options) {
        for (const std::string& form : {option.shortForm, option.longForm}) {
            if (!form.empty()) {
                const bool valued = takesValue(option.takes);
                flags.push_back({valued ? form + '=' : form, inOneRow(option.text), valued});
            }
        }
    }
    return flags;
}

bool takesFiles(const DescribedTool& tool) {
    return !tool.arguments.empty() || isOfShortConstructor(tool.banner);
}

std::vector<OptionLetter> optionLetters(const DescribedTool& tool) {
    std::vector<OptionLetter> letters;
    std::set<std::string> known;
    for (const DescribedOption& option : tool.options) {
        const std::string letter = letterOf(option);
        if (!letter.empty() && known.insert(letter).second) {
            letters.push_back({letter, &option});
        }
    }
    return letters;
}

}  // namespace Kelpkit::programs
