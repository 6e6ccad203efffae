#include "described_tool.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Kelpkit::Takes;
using Kelpkit::programs::describe;
using Kelpkit::programs::DescribedTool;
using Kelpkit::programs::HelpScreen;
using Kelpkit::programs::Hint;
using Kelpkit::programs::readHint;

const char* word(Takes takes) {
    constexpr const char* words[] = {"?", "-", "text", "file", "folder", "choice"};
    return words[static_cast<std::size_t>(takes)];
}

/// Returns "text LINES", "choice fast exact", "choice all or LINES" or "-".
std::string shown(Takes takes, const std::string& name, const std::vector<std::string>& choices) {
    std::string text = word(takes);
    for (const std::string& choice : choices) {
        text += " " + choice;
    }
    return text + (name.empty() ? "" : (choices.empty() ? " " : " or ") + name);
}

// Hints

TEST(Hint, Accepted) {
    const std::pair<const char*, const char*> table[] = {
        {"l", "l -"},
        {"n=LINES", "n text LINES"},
        {"N=LINES", "N text LINES"},
        {"5=a b", "5 text a b"},
        {"o=FILE:file", "o file FILE"},
        {"o=OUT:file", "o file OUT"},
        {"o=FILE", "o file FILE"},
        {"o=FILE:text", "o text FILE"},
        {"d=DIR:folder", "d folder DIR"},
        {"d=DIR", "d folder DIR"},
        {"t=HH:MM", "t text HH:MM"},
        {"t=HH:MM:file", "t file HH:MM"},
        {"m=fast|exact", "m choice fast exact"},
        {"u=hh:mm:text", "u text hh:mm"},
        {"m=<fast|exact>", "m choice fast exact"},
        {"m={1|<n>}", "m choice 1 or n"},
        {"i=FILE|URL:file", "i file FILE|URL"},
        {"m=fast|exact:text", "m text fast|exact"},
        {"m=a:b|c", "m choice a:b c"},
        {"m=FAST|exact", "m choice exact or FAST"},
        {"m=1|2", "m choice 1 2"},
        {"m=LOW|HIGH", "m text LOW|HIGH"},
        {"m=fast|Fast", "m choice fast Fast"},
    };
    for (const auto& [text, expected] : table) {
        const Hint hint = readHint(text);
        EXPECT_EQ(std::string(1, hint.letter) + " " + shown(hint.value.takes, hint.value.name, hint.value.choices),
                  expected)
            << text;
    }
}

TEST(Hint, Refused) {
    for (const char* text : {"",
                             "=",
                             "-",
                             "n=",
                             "ln",
                             "-n=LINES",
                             "=LINES",
                             "n:file",
                             "n=:file",
                             " ",
                             "\n=x",
                             "\xC3=x",
                             "n=\xC3",
                             "n=a\tb",
                             "n=WHERE:dir",
                             "n=LINES:folde",
                             "n=hh:mm",
                             "n=FILE:",
                             "n=a|b:c",
                             "n=fast|",
                             "n=|fast",
                             "n=a||b",
                             "n=|",
                             "n=FILE|:file",
                             "n=fast|fast",
                             "n=FILE|FILE:file"}) {
        try {
            readHint(text);
            ADD_FAILURE() << text;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(),
                      "\"" + std::string(text) +
                          "\" is not a hint; write l, n=LINES, o=FILE:file, d=DIR:folder or m=fast|exact");
        }
    }
}

// What an option takes

HelpScreen screenWith(const char* usage, const char* example) {
    return {"tool",
            "",
            "",
            usage,
            {{"-n", "--number", "text"}, {"-o", "--output", ""}, {"-h", "--help", ""}, {"-v", "--verbose", ""}},
            {{"FIRST", "the first"}, {"OTHER", "the others"}},
            example};
}

struct Case {
    const char* usage;
    const char* example;
    std::vector<const char*> hints;
    const char* number;  ///< what -n takes
    const char* output;  ///< what -o takes
};

TEST(DescribedTool, Values) {
    const Case table[] = {
        // The library's rules
        {"", "", {}, "?", "file FILE"},
        // The example
        {"", "-n=3", {}, "text", "file FILE"},
        {"", "-N=3", {}, "text", "file FILE"},
        {"", "--NUMBER=3", {}, "text", "file FILE"},
        {"", "-n -o=x", {}, "-", "file FILE"},
        {"", "a -o", {}, "?", "file FILE"},
        {"", "'-n=3'", {}, "text", "file FILE"},
        {"", "\"-n=3", {}, "text", "file FILE"},
        {"", "-n -n=3", {}, "text", "file FILE"},
        {"", "a | x -n=3", {}, "?", "file FILE"},
        {"", "a; x -n=3", {}, "?", "file FILE"},
        {"", "a > -n=3", {}, "?", "file FILE"},
        {"", "a < -n=3", {}, "?", "file FILE"},
        {"", "-nx", {}, "?", "file FILE"},
        {"", "-n 3", {}, "?", "file FILE"},
        {"", "-n 0.5 -n", {}, "-", "file FILE"},
        {"", "-n 3.txt", {}, "-", "file FILE"},
        {"", "-n .", {}, "-", "file FILE"},
        {"", "-n ''", {}, "-", "file FILE"},
        {"", "-n=3 4", {}, "text", "file FILE"},
        // The usage line
        {"[-n=LINES]", "-n", {}, "text LINES", "file FILE"},
        {"[--number=LINES]", "", {}, "text LINES", "file FILE"},
        {"[-N=LINES]", "", {}, "text LINES", "file FILE"},
        {"-n=<lines>", "", {}, "text lines", "file FILE"},
        {"-n=", "", {}, "text", "file FILE"},
        {"-n[=LINES]", "", {}, "text LINES", "file FILE"},
        {"-n=A,B", "", {}, "text A,B", "file FILE"},
        {"-n=FILE", "", {}, "file FILE", "file FILE"},
        {"-n=path", "", {}, "file path", "file FILE"},
        {"-n=<Dir>...", "", {}, "folder Dir", "file FILE"},
        {"-n=FOLDER", "", {}, "folder FOLDER", "file FILE"},
        {"-n=DIRECTORY", "", {}, "folder DIRECTORY", "file FILE"},
        {"-n=fast|exact", "", {}, "choice fast exact", "file FILE"},
        {"(-n=1|2)", "", {}, "choice 1 2", "file FILE"},
        {"-n=LOW|HIGH", "", {}, "text LOW|HIGH", "file FILE"},
        {"-n=all|LINES", "", {}, "choice all or LINES", "file FILE"},
        {"-n|-o", "", {}, "-", "file FILE"},
        {"-n=LINES|-o=DIR", "", {}, "text LINES", "folder DIR"},
        {"-n | -o=BASE", "", {}, "-", "file BASE"},
        {"-n -n=LINES", "", {}, "text LINES", "file FILE"},
        {"[-n,-o]", "", {}, "-", "file FILE"},
        {"{-n}\n(-o)\t", "", {}, "-", "file FILE"},
        {"[-n, --number=LINES]", "", {}, "text LINES", "file FILE"},
        {"[--number|-n=LINES]", "", {}, "text LINES", "file FILE"},
        {"[-n=LINES|--number=COUNT]", "", {}, "text LINES", "file FILE"},
        {"[-n]", "-n=3", {}, "text", "file FILE"},
        {"[-n]", "--number=3", {}, "text", "file FILE"},
        {"[-n LINES]", "a", {}, "?", "file FILE"},
        {"[-n LINES]", "-n 3", {}, "?", "file FILE"},
        {"[-n  <lines>]", "", {}, "?", "file FILE"},
        {"[-n LINES]", "-n=3", {}, "text", "file FILE"},
        {"-n FIRST", "", {}, "-", "file FILE"},
        {"-n <FIRST>", "", {}, "-", "file FILE"},
        {"-n lines", "", {}, "?", "file FILE"},
        {"[-n fast|exact]", "", {}, "?", "file FILE"},
        {"[-n] FIRST", "-n 3", {}, "-", "file FILE"},
        // A value in brackets and quotes, after blanks, in two mentions
        {"[-n=<fast|exact>] -o=DIR", "", {}, "choice fast exact", "folder DIR"},
        {"[-n={fast|exact}] -o=DIR", "", {}, "choice fast exact", "folder DIR"},
        {"[-n=(fast | exact)] -o=DIR", "", {}, "choice fast exact", "folder DIR"},
        {"[-n=[fast|exact]] -o=DIR", "", {}, "choice fast exact", "folder DIR"},
        {"-n='fast|exact' -o=DIR", "", {}, "choice fast exact", "folder DIR"},
        {"-n=\"fast|exact\" -o=DIR", "", {}, "choice fast exact", "folder DIR"},
        {"-n='fast'|'exact'", "", {}, "choice fast exact", "file FILE"},
        {"-n[={fast|exact}]", "", {}, "choice fast exact", "file FILE"},
        {"-n=<number of lines>", "", {}, "text number of lines", "file FILE"},
        {"-n=<key>=<value>", "", {}, "text <key>=<value>", "file FILE"},
        {"-n={a=<x y>|b}", "", {}, "choice b or a=<x y>", "file FILE"},
        {"-n=<LINES -o=BASE", "", {}, "text <LINES -o=BASE", "file FILE"},
        {"[-n=fast | exact | slow] -o=DIR", "", {}, "choice fast exact slow", "folder DIR"},
        {"[-n=fast|-n=exact]", "", {}, "choice fast exact", "file FILE"},
        {"[-n=fast | -n=exact]", "", {}, "choice fast exact", "file FILE"},
        {"[-n=fast | FIRST]", "", {}, "text fast", "file FILE"},
        {"[-n=fast] | exact", "", {}, "text fast", "file FILE"},
        {"|-n=fast", "", {}, "text fast", "file FILE"},
        {"-n= LINES", "", {}, "?", "file FILE"},
        // Names beside choices
        {"-n=LINES|all", "", {}, "choice all or LINES", "file FILE"},
        {"-n=<lines>|all", "", {}, "choice all or lines", "file FILE"},
        {"-n=ALL|LINES|a|b", "", {}, "choice a b or ALL|LINES", "file FILE"},
        {"-n=<all>|<lines>", "", {}, "text all|lines", "file FILE"},
        {"-n=URL|FILE|-", "", {}, "file URL|FILE", "file FILE"},
        // The ends of names
        {"-n=LOGFILE", "", {}, "file LOGFILE", "file FILE"},
        {"-n=FILES", "", {}, "file FILES", "file FILE"},
        {"-n=filename", "", {}, "file filename", "file FILE"},
        {"-n=SEARCH_PATHS", "", {}, "file SEARCH_PATHS", "file FILE"},
        {"-n=INPUT", "", {}, "file INPUT", "file FILE"},
        {"-n=OUTPUT", "", {}, "file OUTPUT", "file FILE"},
        {"-n=OUTDIR", "", {}, "folder OUTDIR", "file FILE"},
        {"-n=FOLDERS", "", {}, "folder FOLDERS", "file FILE"},
        {"-n=FILES_MAX", "", {}, "text FILES_MAX", "file FILE"},
        // The usage line counts more than the example, whatever the forms
        {"[--number=LINES]", "-n=3", {}, "text LINES", "file FILE"},
        {"[--number=a|b]", "-n=a", {}, "choice a b", "file FILE"},
        {"[-n=LINES]", "--number=3", {}, "text LINES", "file FILE"},
        {"[-n] LINES", "", {}, "-", "file FILE"},
        {"-n | LINES", "", {}, "-", "file FILE"},
        {"-n or LINES", "", {}, "-", "file FILE"},
        {"-n=3 LINES", "", {}, "text 3", "file FILE"},
        {"-", "", {}, "?", "file FILE"},
        {"x-n=5 -nx", "", {}, "?", "file FILE"},
        // Hints
        {"[-n=LINES]", "-n", {"n"}, "-", "file FILE"},
        {"-o=FILE", "-o=x", {"o=NAME", "n=COUNT"}, "text COUNT", "text NAME"},
        {"", "", {"O=DIR:folder", "N"}, "-", "folder DIR"},
        {"-n=LINES", "", {"n=a|b"}, "choice a b", "file FILE"},
    };
    for (const Case& each : table) {
        std::vector<Hint> hints;
        for (const char* hint : each.hints) {
            hints.push_back(readHint(hint));
        }
        const DescribedTool tool = describe(screenWith(each.usage, each.example), hints);
        ASSERT_EQ(tool.options.size(), 4U);
        const std::string about = std::string(each.usage) + " / " + each.example;
        const auto& number = tool.options[0];
        const auto& output = tool.options[1];
        EXPECT_EQ(shown(number.takes, number.valueName, number.choices), each.number) << about;
        EXPECT_EQ(shown(output.takes, output.valueName, output.choices), each.output) << about;
        EXPECT_EQ(tool.options[2].takes, Takes::nothing) << about;
        EXPECT_EQ(tool.options[3].takes, Takes::nothing) << about;
    }
}

TEST(DescribedTool, SwitchesOfTheLibrary) {
    const HelpScreen screen{"tool",
                            "",
                            "",
                            "",
                            {{"-H", "--HELP", ""},
                             {"-V", "--Verbose", ""},
                             {"-h", "--height", ""},
                             {"-v", "--version", ""},
                             {"-x", "--help", ""},
                             {"", "", ""}},
                            {},
                            ""};
    const std::vector<Takes> expected{Takes::nothing, Takes::nothing, Takes::unknown,
                                      Takes::unknown, Takes::unknown, Takes::unknown};
    const DescribedTool tool = describe(screen, {});
    ASSERT_EQ(tool.options.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(tool.options[i].takes, expected[i]) << i;
    }
}

TEST(DescribedTool, HintsThatDoNotFit) {
    const auto refusal = [](const std::vector<Hint>& hints) -> std::string {
        try {
            describe(screenWith("", ""), hints);
            return "";
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    };
    EXPECT_EQ(refusal({readHint("q")}), "the hint q fits no option of tool");
    EXPECT_EQ(refusal({readHint("n"), readHint("N=LINES")}), "two hints for -n");
}

// Arguments

TEST(DescribedTool, Arguments) {
    const std::pair<const char*, const char*> table[] = {
        {"", "FIRST, OTHER"},
        {"[OPTIONS] FIRST OTHER ", "FIRST, OTHER"},
        {"FIRST OTHER... ", "FIRST, OTHER..."},
        {"FIRST [OTHER]", "FIRST, [OTHER]"},
        {"FIRST [OTHER...]", "FIRST, [OTHER...]"},
        {"FIRST [OTHER]...", "FIRST, [OTHER...]"},
        {"FIRST [OTHER] ...", "FIRST, [OTHER...]"},
        {"FIRST OTHER [OTHER...]", "FIRST, OTHER..."},
        {"[FIRST [OTHER]]", "[FIRST], [OTHER]"},
        {"[-n] FIRST] [OTHER]", "FIRST, [OTHER]"},
        {"[-n[=LINES] FIRST [OTHER]] ", "[FIRST], [OTHER]"},
        {"-n[=LINES] [FIRST] OTHER", "[FIRST], OTHER"},
        {"(FIRST | OTHER)...", "[FIRST], [OTHER...]"},
        {"FIRST|OTHER", "[FIRST], [OTHER]"},
        {"FIRST | -n OTHER", "[FIRST], [OTHER]"},
        {"FIRST  or  -n OTHER...", "[FIRST], [OTHER...]"},
        {"(FIRST | -n) OTHER", "[FIRST], OTHER"},
        {"FIRST (-n|-o) {-n | -o} OTHER", "FIRST, OTHER"},
        {"-n|-o FIRST OTHER", "FIRST, OTHER"},
        {"(FIRST) | [OTHER", "[FIRST], [OTHER]"},
        {"[FIRST", "[FIRST], OTHER"},
        {"<FIRST> <OTHER>...", "FIRST, OTHER..."},
        {"<FIRST> [<OTHER...>]", "FIRST, [OTHER...]"},
        {"FIRST -n...", "FIRST, OTHER"},
        {"first other...", "FIRST, OTHER"},
        {"[-n={a | b}] [FIRST] OTHER", "[FIRST], OTHER"},
        {"[-n=a | b] [-n lines...] FIRST OTHER", "FIRST, OTHER"},
    };
    for (const auto& [usage, expected] : table) {
        std::string text;
        for (const auto& argument : describe(screenWith(usage, ""), {}).arguments) {
            const std::string name = argument.name + (argument.repeated ? "..." : "");
            text += (text.empty() ? "" : ", ") + (argument.optional ? "[" + name + "]" : name);
        }
        EXPECT_EQ(text, expected) << usage;
    }
}

TEST(DescribedTool, Texts) {
    const DescribedTool tool = describe(
        {"name", "banner", "description", "usage", {{"-a", "--all", "everything"}}, {{"FILE", "a file"}}, "example"},
        {});
    EXPECT_EQ(tool.name, "name");
    EXPECT_EQ(tool.banner, "banner");
    EXPECT_EQ(tool.description, "description");
    EXPECT_EQ(tool.usage, "usage");
    EXPECT_EQ(tool.example, "example");
    ASSERT_EQ(tool.options.size(), 1U);
    EXPECT_EQ(tool.options[0].shortForm, "-a");
    EXPECT_EQ(tool.options[0].longForm, "--all");
    EXPECT_EQ(tool.options[0].text, "everything");
    ASSERT_EQ(tool.arguments.size(), 1U);
    EXPECT_EQ(tool.arguments[0].name, "FILE");
    EXPECT_EQ(tool.arguments[0].text, "a file");
}

}  // namespace
