// Takes a help screen apart and writes every document of it. What is accepted comes back byte for byte; JSON, scripts and
// Markdown contain each text of the tool once more, and around them nothing but the lines that they always consist of. Input: a
// line of hints, separated by blanks; then a help screen, its visible form, or, after a line "texts", the texts of a screen with
// an escape character between them: name, line of the banner, description, usage, example, and three for each option (its forms
// and its text) and argument (nothing, its name and its text).
#include <kelpkit/Files.h>

#include <algorithm>
#include <stdexcept>

#include "documents_model.h"
#include "formats.h"
#include "help_screen.h"
#include "input.h"
#include "shell_quoting.h"
#include "target.h"

namespace {

using Kelpkit::Takes;
using namespace Kelpkit::programs;
using fuzz::expectSame;
namespace model = documents_model;
using model::Strings;

Strings pieces(const std::string& text, char separator) {
    Strings all(1);
    for (const char character : text) {
        if (character == separator) {
            all.emplace_back();
        } else {
            all.back() += character;
        }
    }
    return all;
}

std::string screenOf(const std::string& texts) {
    Strings all = pieces(texts, '\033');
    all.resize(std::max<std::size_t>(all.size(), 5));
    HelpScreen screen{all[0], all[1], all[2], all[3], {}, {}, all[4]};
    for (std::size_t i = 5; i + 2 < all.size(); i += 3) {
        if (all[i].empty()) {
            screen.arguments.push_back({all[i + 1], all[i + 2]});
        } else {
            screen.options.push_back({all[i], all[i + 1], all[i + 2]});
        }
    }
    return render(screen);
}

std::string withCrLf(const std::string& text) {
    std::string result;
    for (const char character : text) {
        result += character == '\n' ? "\r\n" : std::string(1, character);
    }
    return result;
}

/// Every byte of a document is printable, but for line ends.
void expectPrintable(const char* what, const std::string& text) {
    for (const std::string& line : model::linesOf(text)) {
        expectSame(what, line, Kelpkit::printable(line));
    }
}

void compareScreen(const std::string& text, const HelpScreen& screen) {
    const bool hasCrLf = text.front() == '\r';
    const std::string rendered = render(screen);
    expectSame("the screen", hasCrLf ? withCrLf(rendered) : rendered, text);
    expectSame("the screen read again", render(parse(rendered)), rendered);
    const std::string visible = visibleScreen(screen);
    expectPrintable("the visible form", visible);
    expectSame("the visible form is one", isVisibleForm(visible), true);
    expectSame("the visible form read again", textOfVisibleForm(visible), rendered);
}

std::vector<Hint> hintsIn(const std::string& line) {
    std::vector<Hint> hints;
    for (const std::string& text : pieces(line, ' ')) {
        try {
            hints.push_back(readHint(text));
        } catch (const std::runtime_error&) {
            continue;
        }
    }
    return hints;
}

DescribedTool described(const HelpScreen& screen, const std::vector<Hint>& hints) {
    try {
        return describe(screen, hints);
    } catch (const std::runtime_error&) {
        return describe(screen, {});
    }
}

void compareTool(const DescribedTool& tool, const HelpScreen& screen) {
    expectSame("the number of options", tool.options.size(), screen.options.size());
    for (const DescribedOption& option : tool.options) {
        expectSame("an option has choices", !option.choices.empty(), option.takes == Takes::choice);
    }
}

void compareJson(const DescribedTool& tool) {
    const std::string text = json(tool);
    expectPrintable("JSON", text);
    Strings expected{tool.name, tool.banner, tool.description, tool.usage, tool.example};
    for (const DescribedOption& option : tool.options) {
        const char* const kinds[] = {"unknown", "nothing", "text", "file", "folder", "choice"};
        expected.insert(expected.end(), {option.shortForm, option.longForm, option.text,
                                         kinds[static_cast<std::size_t>(option.takes)], option.valueName});
        expected.insert(expected.end(), option.choices.begin(), option.choices.end());
    }
    for (const DescribedArgument& argument : tool.arguments) {
        expected.insert(expected.end(), {argument.name, argument.text});
    }
    expectSame("JSON", model::JsonReader(text).read(), expected);
}

void compareMarkdown(const DescribedTool& tool) {
    const std::string text = markdown(tool);
    expectPrintable("Markdown", text);
    const model::Page page = model::readPage(text);
    Strings expected{page.headings.empty() ? "" : page.headings.front(), "## Usage"};
    for (const auto& [heading, isThere] : {std::pair("## Options", !tool.options.empty()),
                                           {"## Arguments", !tool.arguments.empty()},
                                           {"## Example", !tool.example.empty()}}) {
        if (isThere) {
            expected.emplace_back(heading);
        }
    }
    expectSame("headings", page.headings, expected);
    expectSame("items", page.items, tool.options.size() + tool.arguments.size());
    expectSame("blocks of code", page.blocks, tool.example.empty() ? 1U : 2U);
    expectSame("no more than a paragraph", page.paragraphs <= 1, true);
}

/// A man page has its own headings and macros. A line of text begins with neither "." nor "'".
void compareManPage(const DescribedTool& tool) {
    const Strings macros{".\\\"", ".Bd", ".Bl", ".Dd", ".Dt", ".Ed", ".El", ".Fl", ".It", ".Nd",
                         ".Nm",   ".Os", ".Pp", ".Ql", ".Sh", ".Ar", ".Cm", ".No", ".ad"};
    Strings headings;
    const std::string page = manPage(tool, "November 23, 2026", "");
    expectPrintable("the man page", page);
    for (const std::string& line : model::linesOf(page)) {
        const std::string macro = line.substr(0, line.find(' '));
        const bool isText = line.empty() || (line.front() != '.' && line.front() != '\'');
        expectSame(("the macro " + macro).c_str(), isText || std::count(macros.begin(), macros.end(), macro) == 1,
                   true);
        if (macro == ".Sh") {
            headings.push_back(line);
        }
    }
    Strings expected{".Sh NAME", ".Sh SYNOPSIS", ".Sh DESCRIPTION", ".Sh OPTIONS", ".Sh EXIT STATUS", ".Sh EXAMPLES"};
    if (tool.example.empty()) {
        expected.pop_back();
    }
    if (tool.arguments.empty() && tool.description.find_first_not_of(" \t\r\n") == std::string::npos) {
        expected.erase(expected.begin() + 2);
    }
    expectSame("the headings of the man page", headings, expected);
}

/// Returns the script after a line of it.
std::string after(const std::string& script, const std::string& line) {
    const std::size_t found = script.find(line + "\n");
    if (found == std::string::npos) {
        fuzz::fail("no line " + fuzz::described(line));
    }
    return script.substr(found + line.size() + 1);
}

/// Compares what is around the quoted words with the lines of all scripts, in which ID is the identifier.
void compareLines(const model::Script& script, const std::string& identifier, const Strings& known) {
    for (std::string line : model::linesOf(script.around)) {
        for (std::size_t found = 0; (found = line.find(identifier)) != std::string::npos;) {
            line.replace(found, identifier.size(), "ID");
        }
        if (std::find(known.begin(), known.end(), line) == known.end()) {
            fuzz::fail("a completion has the line " + fuzz::described(line));
        }
    }
}

void compareEnd(const char* what, const Strings& words, const Strings& expected) {
    expectSame("enough words", words.size() >= expected.size(), true);
    expectSame(what, Strings(words.end() - static_cast<std::ptrdiff_t>(expected.size()), words.end()), expected);
}

void compareBash(const DescribedTool& tool) {
    const std::string text = bashCompletion(tool);
    expectPrintable("bash", text);
    const model::Script script = model::ScriptReader(after(text, "            case ${flag,,} in"), false).read();
    compareLines(script, identifierOf(tool.name),
                 {"                Q | Q*) _ID_offer_words \\",
                  R"(                    "$flag"Q \)",
                  "                    \"$flag\"Q ;;",
                  "                Q | Q*) _ID_offer_files / ;;",
                  "                Q | Q*) _ID_offer_files ;;",
                  "                *) ;;",
                  "            esac",
                  "            ;;",
                  "        -*)",
                  "        -* | Q)",
                  "            _ID_offer_words \\",
                  "                    Q \\",
                  "                    Q",
                  "            ",
                  "        *) _ID_offer_files ;;",
                  "        *) ;;",
                  "    esac",
                  "}",
                  "",
                  "complete -F _ID -- Q"});
    Strings expected;
    for (const OfferedFlag& flag : offeredFlags(tool)) {
        expected.push_back(flag.word);
    }
    expected.push_back(tool.name);
    compareEnd("words of bash", script.words, expected);
}

void compareZsh(const DescribedTool& tool) {
    const std::string text = zshCompletion(tool);
    expectPrintable("zsh", text);
    const std::string first = text.substr(0, text.find('\n'));
    if (first != "#autoload") {
        expectSame("the first line of zsh", first, "#compdef " + tool.name);
    }
    const model::Script script = model::ScriptReader(text.substr(first.size()), false).read();
    compareLines(script, identifierOf(tool.name),
                 {"",
                  "if [[ $PREFIX == -*=* ]]; then",
                  "    local flag=${(L)PREFIX%%=*}=",
                  "    compset -P 1 Q",
                  "    # The shell expands \"~\" only at the start of a word.",
                  "    if [[ $PREFIX == Q* ]]; then",
                  "        PREFIX=${(q)HOME}/${PREFIX#??}",
                  "    fi",
                  "    case $flag in",
                  "        (Q|Q*) _message Q ;;",
                  "        (Q|Q*) compadd -M Q -- Q ;;",
                  "        (Q|Q*) _path_files -/ ;;",
                  "        (Q|Q*) _files ;;",
                  "        (*) return 1 ;;",
                  "    esac",
                  "elif [[ $PREFIX == -* ]]; then",
                  "elif [[ -z $PREFIX || $PREFIX == -* ]]; then",
                  "    local -a valued=(",
                  "    local -a plain=(",
                  "        Q",
                  "    )",
                  "    compadd -S Q -M Q -- Q",
                  "    compadd -M Q -- Q",
                  "    _describe -O option valued -S Q -M Q -- plain -M Q",
                  "else",
                  "    return 1",
                  "    _files",
                  "fi"});
    expectSame("words of zsh", script.words.size() >= offeredFlags(tool).size(), true);
}

void compareFish(const DescribedTool& tool) {
    const std::string identifier = identifierOf(tool.name);
    const std::string start = "function _" + identifier + "_takes_files --no-scope-shadowing";
    const model::Script script = model::ScriptReader(after(fishCompletion(tool), start), true).read();
    compareLines(script, identifier,
                 {"    if test -n \"$flag\"",
                  "        contains -- \"$letter\" Q; and not string match -q -- Q (commandline -ct)",
                  "        false",
                  "    else",
                  "        not string match -q -- Q \"$word\"",
                  "    end",
                  "end",
                  "",
                  "function _ID_wants_fish",
                  "    set -l word",
                  "    set -l flag",
                  "    set -l letter",
                  "    set -l value",
                  "    set -l paths",
                  "    _ID_read",
                  "    not set -q paths[1]; and _ID_takes_files",
                  "function _ID",
                  "    set -q paths[1]; and _ID_takes_files; and _ID_paths \"$flag\" $paths",
                  "        contains -- \"$letter\" Q; and printf Q",
                  "        set -l folders \"$value\"*/",
                  R"(        contains -- "$letter" Q; and _ID_paths "$flag" $folders)",
                  "    else if string match -q -- Q \"$word\"",
                  "    else if string match -qr -- Q \"$word\"",
                  "        printf Q",
                  "complete -c Q -f",
                  "complete -c Q -n _ID_wants_fish -F",
                  "complete -c Q -a Q"});
    Strings expected;
    for (const OfferedFlag& flag : offeredFlags(tool)) {
        if (std::none_of(flag.word.begin(), flag.word.end(), isControl)) {
            expected.insert(expected.end(), {R"(%s\t%s\n)", flag.word, flag.text});
        }
    }
    expected.insert(expected.end(), {tool.name, tool.name, tool.name, "(_" + identifier + ")"});
    compareEnd("words of fish", script.words, expected);
}

const std::string mark = "texts\n";

bool hasMark(const std::string& rest) {
    return rest.compare(0, mark.size(), mark) == 0;
}

/// Returns the text of a screen that an input describes. Throws a ScreenError if it describes none.
std::string textOf(const std::string& rest) {
    if (hasMark(rest)) {
        return screenOf(rest.substr(mark.size()));
    }
    return isVisibleForm(rest) ? textOfVisibleForm(rest) : rest;
}

/// Whether an input describes a screen by texts that are certainly no reason to refuse it.
bool isPlain(const std::string& rest) {
    const Strings texts = pieces(rest, '\033');
    std::string characters = rest;
    std::replace_if(
        characters.begin(), characters.end(), [](char each) { return each == '\033' || each == '\n' || each == '\t'; },
        ' ');
    const bool hasLongExample = texts.size() > 4 && texts[4].find('\n') != std::string::npos;
    return hasMark(rest) && !hasLongExample && Kelpkit::printable(characters) == characters;
}

}  // namespace

void fuzz::documents(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::vector<Hint> hints = hintsIn(input.line());
    const std::string rest = input.rest();
    try {
        const std::string text = textOf(rest);
        const HelpScreen screen = parse(text);
        compareScreen(text, screen);
        const DescribedTool tool = ::described(screen, hints);
        compareTool(tool, screen);
        compareJson(tool);
        compareMarkdown(tool);
        compareManPage(tool);
        compareBash(tool);
        compareZsh(tool);
        compareFish(tool);
    } catch (const ScreenError& error) {
        const std::string message = error.what();
        expectSame("a refusal of plain texts", isPlain(rest), false);
        expectSame("a refusal", message.substr(0, 5), "line ");
        expectSame("a refusal says what is expected", message.find(": expected ") != std::string::npos, true);
    }
}
