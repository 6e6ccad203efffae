#include <kelpkit/Files.h>

#include <algorithm>

#include "formats.h"

namespace Kelpkit::programs {

namespace {

bool isLineEnd(char character) {
    return character == '\n' || character == '\r';
}

/// Returns a text on one line, without blanks around it, and with other control characters made visible.
std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char each) { return isLineEnd(each) || each == '\t'; }, ' ');
    const std::size_t begin = text.find_first_not_of(' ');
    const std::size_t end = text.find_last_not_of(' ');
    return begin == std::string::npos ? "" : printable(std::string_view(text).substr(begin, end - begin + 1));
}

/// Returns the length of the longest run of backquotes.
std::size_t longestRun(const std::string& text) {
    std::size_t longest = 0;
    std::size_t run = 0;
    for (const char character : text) {
        run = character == '`' ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

/// Returns a text as code within a line.
std::string code(const std::string& text) {
    const std::string content = oneLine(text);
    const std::string quotes(longestRun(content) + 1, '`');
    return content.empty() ? "" : quotes + (quotes.size() > 1 ? " " + content + " " : content) + quotes;
}

/// Returns a line of a block of code, with control characters made visible.
std::string codeLine(std::string line) {
    std::replace_if(
        line.begin(), line.end(), [](char each) { return each == '\t' || each == '\r'; }, ' ');
    line.erase(line.find_last_not_of(' ') + 1);
    return printable(line) + "\n";
}

/// Returns a text as a block of code.
std::string block(const std::string& text) {
    std::string content;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        content += codeLine(text.substr(begin, end - begin));
        begin = end + 1;
    }
    const std::string fence(std::max<std::size_t>(3, longestRun(content) + 1), '`');
    return fence + "\n" + content + fence + "\n";
}

/// Returns a text in which nothing has a meaning for Markdown. It may begin a line.
std::string plain(const std::string& text) {
    constexpr std::string_view anywhere = "\\`*_{}[]<>#&~|$";
    constexpr std::string_view atTheBeginning = "-+=:";
    const std::string line = oneLine(text);
    const std::size_t number = line.find_first_not_of("0123456789");
    std::string result;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool endsNumber = i == number && i > 0 && (line[i] == '.' || line[i] == ')');
        if (endsNumber || anywhere.find(line[i]) != std::string_view::npos ||
            (i == 0 && atTheBeginning.find(line[i]) != std::string_view::npos)) {
            result += '\\';
        }
        result += line[i];
    }
    return result;
}

/// Returns what follows the forms of an option: "=LINES", "=fast|exact".
std::string valueText(const DescribedOption& option) {
    if (option.takes == Takes::unknown || option.takes == Takes::nothing) {
        return "";
    }
    std::string value = option.valueName;
    for (const std::string& choice : option.choices) {
        value += (value.empty() ? "" : "|") + choice;
    }
    return "=" + (value.empty() ? "VALUE" : value);
}

std::string formsOf(const DescribedOption& option) {
    std::string forms;
    for (const std::string& form : {option.shortForm, option.longForm}) {
        forms += form.empty() ? "" : (forms.empty() ? "" : ", ") + code(form + valueText(option));
    }
    return forms;
}

std::string item(const std::string& subject, const std::string& text) {
    return "- " + subject + (subject.empty() || text.empty() ? "" : ": ") + plain(text) + "\n";
}

std::string paragraph(const std::string& text) {
    return text.empty() ? "" : text + "\n\n";
}

}  // namespace

std::string markdown(const DescribedTool& tool) {
    std::string text = paragraph("# " + plain(tool.name)) + paragraph(plain(tool.description)) + "## Usage\n\n" +
                       block(tool.name + " " + tool.usage);
    text += tool.options.empty() ? "" : "\n## Options\n\n";
    for (const DescribedOption& option : tool.options) {
        text += item(formsOf(option), option.text);
    }
    text += tool.arguments.empty() ? "" : "\n## Arguments\n\n";
    for (const DescribedArgument& argument : tool.arguments) {
        text += item(code(argument.name), argument.text);
    }
    return text + (tool.example.empty() ? "" : "\n## Example\n\n" + block(tool.name + " " + tool.example));
}

}  // namespace Kelpkit::programs
