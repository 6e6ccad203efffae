#include "help_screen.h"

#include <algorithm>

#include "screen_text.h"

namespace Kelpkit::programs {

namespace {

// The parts of a help screen around its texts. Texts contain no escape character, so the next one belongs to a part, and a
// screen can be read in one way only.
constexpr std::string_view rule = "\033[34m####################################\033[0m\n";
constexpr std::string_view white = "\033[37m";
constexpr std::string_view cyan = "\033[36m";
constexpr std::string_view whiteTab = "\033[37m\t";
constexpr std::string_view lineEnd = "\033[0m\n";
constexpr std::string_view usageHeading = "\033[36mUsage:\033[0m\n";
constexpr std::string_view usageEnd = "\n\n\033[36mOptions:\033[0m\n";
constexpr std::string_view argumentsHeading = "\n\033[36mArguments:\033[0m\n";
constexpr std::string_view exampleHeading = "\n\033[36mExample:\033[0m\n";
constexpr std::string_view entry = "  \033[34m";
constexpr std::size_t entryBlanks = 2;
constexpr std::string_view betweenForms = ", ";
constexpr std::string_view entryColon = ":\033[0m ";
constexpr std::string_view entryEnd = "\n\n";
constexpr std::string_view nameEnd = "\033[0m ";

/// Reads a help screen from its beginning to its end.
class Reader {
public:
    explicit Reader(std::string_view text) : text(text) {}

    bool isAt(std::string_view part) const {
        return text.substr(position, part.size()) == part;
    }
    bool isAtEnd() const {
        return position == text.size();
    }
    void skip(std::string_view part, const std::string& what) {
        if (!isAt(part)) {
            fail(position, what);
        }
        position += part.size();
    }
    /// Takes the text before a part that contains an escape character, and skips the part.
    std::string takeUntil(std::string_view part, const std::string& what) {
        const std::size_t escape = nextEscape();
        const std::size_t before = part.find('\033');
        if (escape - position < before || text.substr(escape - before, part.size()) != part) {
            fail(escape, what);
        }
        return takeText(escape - before, part);
    }
    /// Takes the text of an option or argument, which ends before the next one or before the end of their section.
    std::string takeEntry(const std::string& what) {
        const std::size_t escape = nextEscape();
        const std::size_t after = escape > 0 && text[escape - 1] == ' ' ? entryBlanks : 1;
        const std::size_t before = entryEnd.size() + after;
        if (escape - position < before || text.substr(escape - before, entryEnd.size()) != entryEnd) {
            fail(escape, what);
        }
        return takeText(escape - before, entryEnd);
    }
    std::string takeLine() {
        const std::size_t end = text.find('\n', position);
        if (nextEscape() < std::min(end, text.size())) {
            fail(nextEscape(), "the example without colours");
        }
        if (end == std::string_view::npos) {
            fail(text.size(), "a line end");
        }
        return takeText(end, "\n");
    }
    [[noreturn]] void fail(const std::string& what) const {
        fail(position, what);
    }

private:
    std::size_t nextEscape() const {
        return std::min(text.find('\033', position), text.size());
    }
    std::string takeText(std::size_t end, std::string_view part) {
        std::string taken(text.substr(position, end - position));
        position = end + part.size();
        return taken;
    }
    [[noreturn]] void fail(std::size_t where, const std::string& what) const {
        const auto lines = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(where), '\n');
        throw ScreenError("line " + std::to_string(lines + 1) + ": expected " + what);
    }

    std::string_view text;
    std::size_t position = 0;
};

void readBanner(Reader& reader, HelpScreen& screen) {
    const std::string aRule = "a blue line of 36 \"#\"";
    reader.skip("\n", "an empty line");
    reader.skip(rule, aRule);
    reader.skip(whiteTab, "a tab and the name of the tool in white");
    screen.name = reader.takeUntil(lineEnd, "the end of the white line");
    reader.skip(white, "the text of the banner in white");
    screen.banner = reader.takeUntil(lineEnd, "the end of the white line");
    reader.skip(rule, aRule);
    reader.skip("\n", "an empty line");
}

void readOption(Reader& reader, HelpScreen& screen) {
    std::string forms = reader.takeUntil(entryColon, "\":\" after the forms of the option");
    const std::size_t end = forms.find(betweenForms);
    if (end == std::string::npos) {
        reader.fail("\", \" between the forms of the option");
    }
    std::string text = reader.takeEntry("an empty line after the option");
    screen.options.push_back({forms.substr(0, end), forms.substr(end + betweenForms.size()), std::move(text)});
}

void readArgument(Reader& reader, HelpScreen& screen) {
    std::string name = reader.takeUntil(entryColon, "\":\" after the name of the argument");
    std::string text = reader.takeEntry("an empty line after the argument");
    screen.arguments.push_back({std::move(name), std::move(text)});
}

HelpScreen readScreen(Reader reader) {
    HelpScreen screen;
    readBanner(reader, screen);
    reader.skip(cyan, "the description in cyan");
    screen.description = reader.takeUntil(lineEnd, "the end of the cyan line");
    reader.skip(usageHeading, "the heading \"Usage:\"");
    reader.skip("  " + screen.name + " ", "two blanks, the name of the tool and a blank");
    screen.usage = reader.takeUntil(usageEnd, "an empty line and the heading \"Options:\"");
    while (reader.isAt(entry)) {
        reader.skip(entry, "an option");
        readOption(reader, screen);
    }
    reader.skip(argumentsHeading, "an option, or an empty line and the heading \"Arguments:\"");
    while (reader.isAt(entry)) {
        reader.skip(entry, "an argument");
        readArgument(reader, screen);
    }
    reader.skip(exampleHeading, "an argument, or an empty line and the heading \"Example:\"");
    reader.skip(std::string(entry).append(screen.name).append(nameEnd),
                "two blanks, the name of the tool in blue and a blank");
    screen.example = reader.takeLine();
    if (!reader.isAtEnd()) {
        reader.fail("the end of the help screen");
    }
    return screen;
}

}  // namespace

HelpScreen parse(std::string_view text) {
    const std::string plain = withPlainLineEnds(text);
    HelpScreen screen = readScreen(Reader(plain));
    requirePrintable(plain);
    return screen;
}

std::string render(const HelpScreen& screen) {
    std::string text("\n");
    text.append(rule).append(whiteTab).append(screen.name).append(lineEnd);
    text.append(white).append(screen.banner).append(lineEnd).append(rule).append("\n");
    text.append(cyan).append(screen.description).append(lineEnd);
    text.append(usageHeading).append("  ").append(screen.name).append(" ").append(screen.usage).append(usageEnd);
    for (const HelpScreen::Option& option : screen.options) {
        text.append(entry).append(option.shortForm).append(betweenForms).append(option.longForm);
        text.append(entryColon).append(option.text).append(entryEnd);
    }
    text.append(argumentsHeading);
    for (const HelpScreen::Argument& argument : screen.arguments) {
        text.append(entry).append(argument.name).append(entryColon).append(argument.text).append(entryEnd);
    }
    text.append(exampleHeading).append(entry).append(screen.name).append(nameEnd).append(screen.example);
    return text + "\n";
}

bool isOfShortConstructor(const std::string& banner) {
    return banner == "     Copyright (c) 2026 The kelplib authors, MIT licence";
}

}  // namespace Kelpkit::programs
