#include "shell_quoting.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "formats.h"

namespace Kelpkit::programs {

namespace {

struct Quoted {
    std::string text;
    std::string shell;
    std::string fish;
};

TEST(ShellQuoting, Quotes) {
    const Quoted cases[] = {
        {"", "''", "''"},
        {"a b", "'a b'", "'a b'"},
        {"*?[~#!\"", "'*?[~#!\"'", "'*?[~#!\"'"},
        {"it's", "$'it\\'s'", "'it\\'s'"},
        {"$(x)", "$'$(x)'", "'$(x)'"},
        {"`x`", "$'`x`'", "'`x`'"},
        {"\\", "$'\\\\'", "'\\\\'"},
        {"a\nb\t\x7F", R"($'a\012b\011\177')", "'a\nb\t\x7F'"},
        {std::string("a\0b", 3), "$'ab'", "'ab'"},
        {"\xC3\xA9", "'\xC3\xA9'", "'\xC3\xA9'"},
        {"\xFF'", "$'\xFF\\''", "'\xFF\\''"},
    };
    for (const Quoted& each : cases) {
        EXPECT_EQ(quotedForShell(each.text), each.shell);
        EXPECT_EQ(quotedForFish(each.text), each.fish);
    }
}

TEST(ShellQuoting, IdentifiersAreDistinct) {
    EXPECT_EQ(identifierOf("firstlines"), "kelp_firstlines");
    EXPECT_EQ(identifierOf("a-b"), "kelp_a_2db");
    EXPECT_EQ(identifierOf("a_b"), "kelp_a_5fb");
    EXPECT_EQ(identifierOf("a_2db"), "kelp_a_5f2db");
    EXPECT_EQ(identifierOf("\xC3\xA9 \n"), "kelp__c3_a9_20_0a");
    EXPECT_EQ(identifierOf(""), "kelp_");
}

TEST(ShellQuoting, NamesFunctions) {
    EXPECT_EQ(named("_ID_read; ID; _ID", "kelp_x"), "_kelp_x_read; ID; _kelp_x");
    EXPECT_EQ(named("", "kelp_x"), "");
}

TEST(ShellQuoting, KeepsTextsInOneRow) {
    EXPECT_EQ(inOneRow("a\nb\tc\x1B\x7F d"), "a b c   d");
}

DescribedTool toolWith(const std::vector<DescribedOption>& options) {
    DescribedTool tool;
    tool.name = "tool";
    tool.options = options;
    return tool;
}

TEST(ShellQuoting, OffersEachForm) {
    const DescribedTool tool = toolWith({{"-n", "--number", "a\nb", Takes::text, "", {}},
                                         {"-l", "", "", Takes::nothing, "", {}},
                                         {"", "--unknown", "", Takes::unknown, "", {}},
                                         {"-f", "--file", "", Takes::file, "", {}},
                                         {"-d", "", "", Takes::folder, "", {}},
                                         {"-m", "", "", Takes::choice, "", {}}});
    std::string words;
    for (const OfferedFlag& each : offeredFlags(tool)) {
        words += each.word + (each.takesValue ? "+ " : " ");
    }
    EXPECT_EQ(words, "-n=+ --number=+ -l --unknown -f=+ --file=+ -d=+ -m=+ ");
    EXPECT_EQ(offeredFlags(tool)[0].text, "a b");
}

TEST(ShellQuoting, TakesTheFirstOptionOfALetter) {
    const DescribedTool tool = toolWith({{"-N", "--number", "first", Takes::text, "", {}},
                                         {"-n", "--other", "second", Takes::text, "", {}},
                                         {"", "--Long", "third", Takes::text, "", {}},
                                         {"-\xC3\xA9", "", "fourth", Takes::text, "", {}},
                                         {"", "", "", Takes::text, "", {}},
                                         {"--", "", "", Takes::text, "", {}},
                                         {"", "--\xC3", "fifth", Takes::text, "", {}}});
    std::string letters;
    for (const OptionLetter& each : optionLetters(tool)) {
        letters += each.letter + ' ' + each.option->text + '\n';
    }
    EXPECT_EQ(letters, "n first\nl third\n\xC3\xA9 fourth\n\xC3 fifth\n");
}

TEST(Completions, AreTheSameForTheSameTool) {
    const DescribedTool tool = toolWith({{"-n", "--number", "text", Takes::text, "", {}}});
    EXPECT_EQ(bashCompletion(tool), bashCompletion(tool));
    EXPECT_EQ(zshCompletion(tool), zshCompletion(tool));
    EXPECT_EQ(fishCompletion(tool), fishCompletion(tool));
}

TEST(Completions, AreRegistered) {
    const struct {
        std::string name;
        std::string bash;
        std::string zsh;
        std::string fish;
    } cases[] = {
        {"a-b", "complete -F _kelp_a_2db -- 'a-b'\n", "#compdef a-b\n", "complete -c 'a-b' -f\n"},
        {"it's", "complete -F _kelp_it_27s -- $'it\\'s'\n", "#compdef it's\n", "complete -c 'it\\'s' -f\n"},
        {"a b", "complete -F _kelp_a_20b -- 'a b'\n", "#autoload\n", "complete -c 'a b' -f\n"},
        {"a=b", "complete -F _kelp_a_3db -- 'a=b'\n", "#autoload\n", "complete -c 'a=b' -f\n"},
        {"-p", "complete -F _kelp__2dp -- '-p'\n", "#autoload\n", "complete -c '-p' -f\n"},
        {"a\nb", "complete -F _kelp_a_0ab -- $'a\\012b'\n", "#autoload\n", "complete -c 'a\nb' -f\n"},
    };
    for (const auto& each : cases) {
        DescribedTool tool;
        tool.name = each.name;
        EXPECT_NE(bashCompletion(tool).find(each.bash), std::string::npos) << each.name;
        EXPECT_EQ(zshCompletion(tool).rfind(each.zsh, 0), 0U) << each.name;
        EXPECT_NE(fishCompletion(tool).find(each.fish), std::string::npos) << each.name;
    }
}

}  // namespace

}  // namespace Kelpkit::programs
