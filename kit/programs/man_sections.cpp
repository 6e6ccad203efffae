#include "man_sections.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

#include "help_screen.h"
#include "screen_text.h"

namespace Kelpkit::programs {

namespace {

constexpr std::string_view heading = ".Sh ";
constexpr std::string_view comment = ".\\\"";

/// The conventional order. mandoc warns about another one, except for OPTIONS, which it does not know.
constexpr std::array<std::string_view, 22> titles{"NAME",
                                                  "LIBRARY",
                                                  "SYNOPSIS",
                                                  "DESCRIPTION",
                                                  "OPTIONS",
                                                  "CONTEXT",
                                                  "IMPLEMENTATION NOTES",
                                                  "RETURN VALUES",
                                                  "ENVIRONMENT",
                                                  "FILES",
                                                  "EXIT STATUS",
                                                  "EXAMPLES",
                                                  "DIAGNOSTICS",
                                                  "COMPATIBILITY",
                                                  "ERRORS",
                                                  "SEE ALSO",
                                                  "STANDARDS",
                                                  "HISTORY",
                                                  "AUTHORS",
                                                  "CAVEATS",
                                                  "BUGS",
                                                  "SECURITY CONSIDERATIONS"};

std::size_t positionOf(std::string_view title) {
    return static_cast<std::size_t>(std::find(titles.begin(), titles.end(), title) - titles.begin());
}

/// Returns the place of a section. Those with a title of their own come after EXIT STATUS.
std::size_t rankOf(const ManSection& section) {
    const std::size_t position = positionOf(section.title);
    return position < titles.size() ? position : positionOf("EXIT STATUS");
}

bool startsWith(std::string_view text, std::string_view begin) {
    return text.substr(0, begin.size()) == begin;
}

/// Returns the lines of a text without their line ends.
std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

/// Returns the title in a heading, without quotes and blanks around it.
std::string titleOf(const std::string& line) {
    constexpr std::string_view around = " \"";
    const std::size_t begin = std::min(line.find_first_not_of(around, heading.size()), line.size());
    return line.substr(begin, line.find_last_not_of(around) + 1 - begin);
}

bool isHeading(const std::string& line) {
    return startsWith(line + " ", heading);
}

std::vector<ManSection> split(const std::string& text) {
    std::vector<ManSection> sections;
    for (const std::string& line : linesOf(text)) {
        if (isHeading(line)) {
            sections.push_back({titleOf(line), ""});
        } else if (!sections.empty()) {
            sections.back().text += line + "\n";
        }
    }
    return sections;
}

[[noreturn]] void fail(std::size_t line, const std::string& what) {
    throw ScreenError("line " + std::to_string(line) + ": expected " + what);
}

void requireSections(const std::string& text) {
    std::set<std::string> titlesAbove;
    std::size_t number = 1;
    for (const std::string& line : linesOf(text)) {
        const bool isIgnored = line.empty() || startsWith(line, comment) || !titlesAbove.empty();
        if (isHeading(line) ? titleOf(line).empty() : !isIgnored) {
            fail(number, "\".Sh\" and a title");
        }
        if (isHeading(line) && !titlesAbove.insert(titleOf(line)).second) {
            fail(number, "a title that no section above has");
        }
        ++number;
    }
    if (titlesAbove.empty()) {
        fail(number, "\".Sh\" and a title");
    }
}

void requireText(std::string_view text) {
    requirePrintable(text);
    const auto isControl = [](char each) {
        return (each >= 0 && each < ' ' && each != '\n' && each != '\t') || each == '\x7f';
    };
    const auto* const control = std::find_if(text.begin(), text.end(), isControl);
    if (control != text.end()) {
        fail(static_cast<std::size_t>(std::count(text.begin(), control, '\n')) + 1, "no control characters");
    }
}

}  // namespace

void insertManSections(std::vector<ManSection>& page, const std::string& sections) {
    for (const ManSection& section : split(sections)) {
        const auto old = std::find_if(page.begin(), page.end(),
                                      [&section](const ManSection& each) { return each.title == section.title; });
        if (old == page.end()) {
            page.push_back(section);
        } else {
            *old = section;
        }
    }
    std::stable_sort(page.begin(), page.end(),
                     [](const ManSection& a, const ManSection& b) { return rankOf(a) < rankOf(b); });
}

std::string checkedManSections(const std::string& bytes) {
    std::string text = withPlainLineEnds(bytes);
    requireText(text);
    requireSections(text);
    return text;
}

}  // namespace Kelpkit::programs
