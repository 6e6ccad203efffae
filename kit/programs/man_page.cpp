#include <algorithm>
#include <string_view>

#include "formats.h"
#include "man_sections.h"
#include "mdoc_macros.h"
#include "mdoc_text.h"

namespace Kelpkit::programs {

namespace {

constexpr const char* listBegin = ".Bl -tag -width Ds\n";
constexpr const char* listEnd = ".El\n";

std::string inCapitals(std::string text) {
    const auto capital = [](char each) {
        return each >= 'a' && each <= 'z' ? static_cast<char>(each - 'a' + 'A') : each;
    };
    std::transform(text.begin(), text.end(), text.begin(), capital);
    return text;
}

std::string item(const std::string& subject, const std::string& text) {
    return ".It " + (subject.empty() ? mdocArgument("") : subject) + "\n" + mdocText(text);
}

std::string name(const DescribedTool& tool) {
    const std::string summary = mdocSummary(tool.description);
    return ".Nm " + mdocArgument(tool.name) + "\n.Nd " + (summary.empty() ? "command\\-line tool" : summary) + "\n";
}

std::string synopsis(const DescribedTool& tool) {
    std::string text = ".Nm\n";
    for (const std::string& word : mdocWords(tool.usage)) {
        text += "." + mdocUsageWord(word) + "\n";
    }
    return text;
}

std::string description(const DescribedTool& tool) {
    std::string text = mdocText(tool.description);
    if (!tool.arguments.empty()) {
        text.append(text.empty() ? "" : ".Pp\n").append("The arguments are as follows:\n").append(listBegin);
        for (const DescribedArgument& argument : tool.arguments) {
            text += item(argument.name.empty() ? "" : "Ar " + mdocArgument(argument.name), argument.text);
        }
        text += listEnd;
    }
    return text;
}

/// What it says is true of the library and of the kit, which is stricter.
std::string options(const DescribedTool& tool) {
    std::string help =
        "If\n.Fl h\nor\n.Fl \\-help\n"
        "is anywhere on the command line, the tool prints its help and does nothing else.\n";
    if (tool.options.empty()) {
        return help;
    }
    std::string text =
        "An option is its short form or its whole long form, in upper or lower case.\n"
        "A value is attached to it with\n.Ql = ,\nwithout blanks.\n" +
        help + listBegin;
    for (const DescribedOption& option : tool.options) {
        text += item(mdocForms(option), option.text);
    }
    return text + listEnd;
}

/// Without the kit, a refused command line ends with status 0.
std::string exitStatus() {
    return std::string(listBegin) + ".It 0\nSuccess.\nHelp or a rejected command line may also end with 0.\n" +
           ".It >0\nAn error occurred.\n" + listEnd;
}

std::string examples(const DescribedTool& tool) {
    return ".Bd -literal -offset indent\n" + mdocLiteral(tool.name + " " + tool.example) + ".Ed\n";
}

/// Whether a line of a section may have a single word because the next one does not fit.
bool hasLongWord(const std::string& text) {
    constexpr std::size_t halfLine = 32;
    std::size_t length = 0;
    bool isJoined = false;
    for (const std::string& word : mdocWords(text)) {
        const bool isMacro = word.size() == 2 && word.front() >= 'A' && word.front() <= 'Z';
        length = isJoined || isMacro ? length : 0;
        length += isMacro ? 0 : word.size();
        isJoined = isMacro && (isJoined || word == "Ns");
        if (length > halfLine) {
            return true;
        }
    }
    return false;
}

/// Returns the request for a section with long words: groff 1.23 warns about a single word that it cannot adjust to a line.
const char* adjustment(const std::string& text) {
    return hasLongWord(text) ? ".ad l\n" : "";
}

}  // namespace

std::string manPage(const DescribedTool& tool, const std::string& date, const std::string& sections) {
    std::vector<ManSection> page{{"NAME", name(tool)},
                                 {"SYNOPSIS", synopsis(tool)},
                                 {"DESCRIPTION", description(tool)},
                                 {"OPTIONS", options(tool)},
                                 {"EXIT STATUS", exitStatus()},
                                 {"EXAMPLES", tool.example.empty() ? "" : examples(tool)}};
    insertManSections(page, sections);
    std::string text =
        ".\\\" -*- coding: utf-8 -*-\n.Dd " + date + "\n.Dt " + mdocArgument(inCapitals(tool.name)) + " 1\n.Os\n";
    for (const ManSection& section : page) {
        if (!section.text.empty()) {
            text += ".Sh " + section.title + "\n" + adjustment(section.text) + section.text;
        }
    }
    return text;
}

}  // namespace Kelpkit::programs
