#include "mdoc_macros.h"

#include <algorithm>
#include <string_view>

#include "ascii_case.h"
#include "mdoc_text.h"

namespace Kelpkit::programs {

namespace {

constexpr const char* mayBreak = "\\:\\&";
constexpr std::size_t longWord = 25;
constexpr std::size_t maximumParts = 30;  // groff ends when hundreds of macros follow each other on a line

/// Returns the macro and the argument for a form of an option.
std::string flag(const std::string& form) {
    return form.front() == '-' ? "Fl " + mdocArgument(form.substr(1)) : "Cm " + mdocArgument(form);
}

/// Whether a part of the usage line is the name of a value or of an argument, as LINES is.
bool isName(const std::string& text) {
    const auto isLower = [](char each) { return each >= 'a' && each <= 'z'; };
    return lowerCase(text) != text && std::none_of(text.begin(), text.end(), isLower);
}

/// Returns the macro and the argument for a part of the usage line. `macro` is that of values, or empty outside of them.
std::string part(const std::string& text, const std::string& macro) {
    if (isName(text)) {
        return "Ar " + mdocArgument(text);
    }
    if (!macro.empty()) {
        return macro + mdocArgument(text);
    }
    return text.front() == '-' ? flag(text) : "No " + mdocArgument(text);
}

/// Returns the macros for a part of the usage line that "..." may follow.
std::string repeatedPart(const std::string& text, const std::string& macro) {
    const std::size_t end = text.find_last_not_of('.') + 1;
    const bool isRepeated = end > 0 && end + 3 <= text.size();
    return isRepeated ? part(text.substr(0, end), macro) + " Ns No " + mdocArgument(text.substr(end))
                      : part(text, macro);
}

/// Returns the macros for the names and choices of a value.
std::string alternatives(const DescribedOption& option) {
    std::string words = option.valueName;
    std::string macros = words.empty() ? "" : "Ar " + mdocArgument(words);
    for (const std::string& choice : option.choices) {
        words += (words.empty() ? "" : "|") + choice;
    }
    const std::string separator = std::string(" Ns \\&|") + (words.size() > longWord ? mayBreak : "") + " Ns Cm ";
    for (const std::string& choice : option.choices) {
        macros += (macros.empty() ? "Cm " : separator) + mdocArgument(choice);
    }
    return option.choices.size() > maximumParts ? "Cm " + mdocArgument(words) : macros;
}

/// Returns the macros that follow the form of an option: those for "=LINES" and "=fast|exact".
std::string valueOf(const DescribedOption& option) {
    if (option.takes == Takes::unknown || option.takes == Takes::nothing) {
        return "";
    }
    const std::string macros = alternatives(option);
    return " Ns = Ns " + (macros.empty() ? "Ar VALUE" : macros);
}

}  // namespace

std::string mdocUsageWord(const std::string& word) {
    constexpr std::string_view separators = "[](){}<>|,=";
    const char* const valueMacro = word.find('|') == std::string::npos ? "Ar " : "Cm ";
    const char* const lineBreak = word.size() > longWord ? mayBreak : "";
    std::string line;
    bool isValue = false;
    std::size_t parts = 0;
    for (std::size_t begin = 0; begin < word.size(); ++parts) {
        const std::size_t end = std::min(word.find_first_of(separators, begin), word.size());
        const std::size_t length = parts < maximumParts ? std::max<std::size_t>(end - begin, 1) : std::string::npos;
        const std::string text = word.substr(begin, length);
        line += line.empty() ? "" : " Ns ";
        line += end == begin ? "No " + mdocArgument(text) + lineBreak : repeatedPart(text, isValue ? valueMacro : "");
        isValue = text == "=" || (isValue && text != "]" && text != ")" && text != "}");
        begin += text.size();
    }
    return line;
}

std::string mdocForms(const DescribedOption& option) {
    std::string forms;
    for (const std::string& form : {option.shortForm, option.longForm}) {
        forms += form.empty() ? "" : (forms.empty() ? "" : " , ") + flag(form) + valueOf(option);
    }
    return forms;
}

}  // namespace Kelpkit::programs
