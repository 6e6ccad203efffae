#include <kelpkit/CommandLine.h>

#include <gtest/gtest.h>

#include <cmath>

#include "arguments.h"
#include "help.h"

#include "ascii_case.h"

using Kelpkit::CommandLine;
using Kelpkit::Definition;

/// A type of a tool's own.
namespace paint {

struct Colour {
    int code = 0;
};

static Kelpkit::Read<Colour> readValue(const std::string& text, Kelpkit::Type<Colour> /*type*/) {
    return text == "red" ? Kelpkit::Read<Colour>::of({31}) : Kelpkit::Read<Colour>::expected("a colour");
}

}  // namespace paint

namespace {

Definition definition(std::vector<Kelp::Argument> arguments = {}, std::size_t optionalArguments = 0) {
    Definition result;
    result.name = "tool";
    result.options = {{"-n", "--number", "how many", Kelpkit::takesValue},
                      {"-l", "--loud", "louder", Kelpkit::isSwitch}};
    result.arguments = std::move(arguments);
    result.optionalArguments = optionalArguments;
    return result;
}

CommandLine lineOf(const Definition& tool, std::vector<std::string> tokens) {
    tokens.insert(tokens.begin(), "tool");
    Arguments line(tokens);
    return {tool, line.argc(), line.argv()};
}

template <class Call>
std::string refusal(Call call) {
    try {
        call();
    } catch (const Kelpkit::UsageError& error) {
        return error.what();
    }
    return "accepted";
}

template <class Call>
std::string mistake(Call call) {
    try {
        call();
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "none";
}

/// Checks which numbers of arguments are accepted, from none to four.
std::string counts(const Definition& tool) {
    std::string result;
    for (std::size_t count = 0; count <= 4; ++count) {
        const std::vector<std::string> tokens(count, "a");
        result += refusal([&] { lineOf(tool, tokens); }) + "\n";
    }
    return result;
}

TEST(CommandLine, CountsArguments) {
    const Kelp::Argument one("ONE", "", false);
    const Kelp::Argument more("MORE", "", true);
    const std::string unexpected = "\"a\": no arguments are expected\n";
    const std::string tooMany = "\"a\": one argument too many\n";
    const std::string fine = "accepted\n";
    EXPECT_EQ(counts(definition()), fine + unexpected + unexpected + unexpected + unexpected);
    EXPECT_EQ(counts(definition({}, 3)), fine + unexpected + unexpected + unexpected + unexpected);
    EXPECT_EQ(counts(definition({one})), "ONE is missing\n" + fine + tooMany + tooMany + tooMany);
    EXPECT_EQ(counts(definition({more})), "MORE is missing\n" + fine + fine + fine + fine);
    EXPECT_EQ(counts(definition({more}, 1)), fine + fine + fine + fine + fine);
    EXPECT_EQ(counts(definition({one, more})), "ONE is missing\nMORE is missing\n" + fine + fine + fine);
    EXPECT_EQ(counts(definition({one, more}, 1)), "ONE is missing\n" + fine + fine + fine + fine);
    EXPECT_EQ(counts(definition({one, one}, 1)), "ONE is missing\n" + fine + fine + tooMany + tooMany);
    EXPECT_EQ(counts(definition({one, one}, 2)), fine + fine + fine + tooMany + tooMany);
    EXPECT_EQ(counts(definition({one, one}, 9)), fine + fine + fine + tooMany + tooMany);
    Definition usual;
    usual.arguments = {one};
    EXPECT_EQ(counts(usual), "ONE is missing\n" + fine + tooMany + tooMany + tooMany);
    EXPECT_EQ(counts(definition({more, one})), "MORE is missing\nONE is missing\n" + fine + tooMany + tooMany);
}

TEST(CommandLine, AnswersQuestions) {
    const CommandLine line = lineOf(definition({{"FILE", "", true}}), {"a", "--NUMBER=5", "b"});
    EXPECT_EQ(line.name(), "tool");
    EXPECT_TRUE(line.has("-n"));
    EXPECT_TRUE(line.has("-N"));
    EXPECT_TRUE(line.has("--number"));
    EXPECT_FALSE(line.has("-l"));
    EXPECT_FALSE(line.has("--loud"));
    EXPECT_EQ(line.value<int>("-n"), 5);
    EXPECT_EQ(line.value<int>("--Number"), 5);
    EXPECT_EQ(line.value<std::string>("-n"), "5");
    EXPECT_EQ(line.arguments(), (std::vector<std::string>{"a", "b"}));
    EXPECT_FALSE(lineOf(definition(), {}).value<int>("-n"));
    EXPECT_FALSE(lineOf(definition(), {}).outputFile("-n"));
}

TEST(CommandLine, ReportsMistakesOfTheTool) {
    const CommandLine line = lineOf(definition(), {"-n=5"});
    const std::string undefined = "the tool asks for the option --num, which it does not define";
    EXPECT_EQ(mistake([&] { static_cast<void>(line.has("--num")); }), undefined);
    EXPECT_EQ(mistake([&] { line.value<int>("--num"); }), undefined);
    EXPECT_EQ(mistake([&] { line.outputFile("--num"); }), undefined);
    EXPECT_EQ(mistake([&] { line.refuse("--num", "x"); }), undefined);
    EXPECT_EQ(mistake([&] {
                  line.value<int>("-m", Kelpkit::Choices<int>{{"a", 1}});
              }),
              "the tool asks for the option -m, which it does not define");
    EXPECT_EQ(mistake([&] { line.value<int>("-l"); }), "the tool asks for the value of -l, which takes none");
    EXPECT_EQ(mistake([&] { line.outputFile("-l"); }), "the tool asks for the value of -l, which takes none");
}

TEST(CommandLine, RefusesForTheTool) {
    const CommandLine line = lineOf(definition(), {"--number=5"});
    EXPECT_EQ(refusal([&] { line.refuse("-n", "is odd"); }), "--number=5: is odd");
    EXPECT_EQ(refusal([&] { line.refuse("--number", "is odd"); }), "--number=5: is odd");
    EXPECT_EQ(refusal([&] { line.refuse("-l", "is needed"); }), "-l: is needed");
    EXPECT_EQ(refusal([&] { line.refuse("--loud", "is needed"); }), "--loud: is needed");
}

TEST(CommandLine, TakesLimitsOfOtherTypes) {
    const Definition tool = definition();
    const auto answer = [&](const char* token, auto type, const auto& limits) {
        using Value = decltype(type);
        return refusal([&] { lineOf(tool, {token}).value<Value>("-n", limits); });
    };
    EXPECT_EQ(answer("-n=2147483648", std::size_t{}, Kelpkit::atLeast(1)), "accepted");
    EXPECT_EQ(answer("-n=0", std::size_t{}, Kelpkit::atLeast(1)),
              "-n=0: not a whole number from 1 to 18446744073709551615");
    EXPECT_EQ(answer("-n=6", 0U, Kelpkit::between(-5, 5)), "-n=6: not a whole number from 0 to 5");
    EXPECT_EQ(answer("-n=x", static_cast<signed char>(0), Kelpkit::between(-500, 5)),
              "-n=x: not a whole number from -128 to 5");
    EXPECT_EQ(answer("-n=x", 0, Kelpkit::between(0ULL, ~0ULL)), "-n=x: not a whole number from 0 to 2147483647");
    EXPECT_EQ(answer("-n=x", 0LL, Kelpkit::between(-1, 1)), "-n=x: not a whole number from -1 to 1");
    EXPECT_EQ(answer("-n=2", 0.0, Kelpkit::between(0, 1)), "-n=2: not a number from 0 to 1");
    EXPECT_EQ(answer("-n=-4", 0, Kelpkit::between(-5, -5)), "-n=-4: not a whole number from -5 to -5");
    EXPECT_EQ(answer("-n=2", 0.0, Kelpkit::between(0.5, 0.5)), "-n=2: not a number from 0.5 to 0.5");
    EXPECT_EQ(answer("-n=0.1", 0.0F, Kelpkit::between(0.1, 1e300)), "accepted");
    EXPECT_EQ(answer("-n=0.7", 0.0F, Kelpkit::between(0.7, 1.0)), "accepted");
    EXPECT_EQ(answer("-n=0.69999", 0.0F, Kelpkit::between(0.7, 1.0)), "-n=0.69999: not a number from 0.7 to 1");
    EXPECT_EQ(answer("-n=x", 0.0F, Kelpkit::between(0.0, HUGE_VAL)), "-n=x: not a number from 0 to 3.4028235e+38");
    EXPECT_EQ(answer("-n=2", 0.0L, Kelpkit::between(0, 1)), "-n=2: not a number from 0 to 1");
    EXPECT_EQ(answer("-n=2:0", std::vector<int>{}, Kelpkit::between(1U, 9U)),
              "-n=2:0: not whole numbers from 1 to 9 separated by \":\"");
    EXPECT_EQ(answer("-n=0:1.5", std::tuple<double, double>{}, Kelpkit::between(0, 1)),
              "-n=0:1.5: not a range FROM:TO of numbers from 0 to 1, the lower one first");
}

TEST(CommandLine, RefusesLimitsThatNoNumberMeets) {
    const CommandLine line = lineOf(definition(), {});
    const std::string none = "no number lies within the limits of an option";
    EXPECT_EQ(mistake([&] { line.value<int>("-n", Kelpkit::between(2, 1)); }), none);
    EXPECT_EQ(mistake([&] { line.value<unsigned char>("-n", Kelpkit::between(300, 400)); }), none);
    EXPECT_EQ(mistake([&] { line.value<unsigned int>("-n", Kelpkit::between(-5, -1)); }), none);
    EXPECT_EQ(mistake([&] { line.value<unsigned int>("-n", Kelpkit::between(-5, 0)); }), "none");
    EXPECT_EQ(mistake([&] { line.value<unsigned char>("-n", Kelpkit::atLeast(256)); }), none);
    EXPECT_EQ(mistake([&] { line.value<unsigned char>("-n", Kelpkit::atLeast(255)); }), "none");
    EXPECT_EQ(mistake([&] { line.value<double>("-n", Kelpkit::between(1.5, 1.0)); }), none);
    EXPECT_EQ(mistake([&] { line.value<double>("-n", Kelpkit::between(1.0, 1.0)); }), "none");
    EXPECT_EQ(mistake([&] { line.value<double>("-n", Kelpkit::between(std::nan(""), 1.0)); }), none);
    EXPECT_EQ(mistake([&] { line.value<double>("-n", Kelpkit::between(0.0, std::nan(""))); }), none);
    EXPECT_EQ(mistake([&] { line.value<float>("-n", Kelpkit::atLeast(std::nan(""))); }), none);
    EXPECT_EQ(mistake([&] { line.value<long double>("-n", Kelpkit::atLeast(std::nanl(""))); }), none);
}

TEST(CommandLine, ReadsChoices) {
    const Kelpkit::Choices<int> modes{{"fast", 1}, {"exact", 2}};
    EXPECT_EQ(lineOf(definition(), {"-n=EXACT"}).value<int>("-n", modes), 2);
    EXPECT_FALSE(lineOf(definition(), {}).value<int>("-n", modes));
    EXPECT_EQ(refusal([&] { lineOf(definition(), {"-n=fas"}).value<int>("-n", modes); }),
              "-n=fas: not one of fast, exact");
    EXPECT_EQ(refusal([&] {
                  lineOf(definition(), {"-n=x"}).value<int>("-n", Kelpkit::Choices<int>{{"fast", 1}});
              }),
              "-n=x: not fast");
}

TEST(CommandLine, RefusesChoicesThatCannotBeMade) {
    const auto answer = [](const Kelpkit::Choices<int>& choices) {
        return mistake([&] { lineOf(definition(), {}).value<int>("-n", choices); });
    };
    const std::string needs = "the tool needs choices for -n, none empty and no two equal";
    EXPECT_EQ(answer({}), needs);
    EXPECT_EQ(answer({{"", 1}}), needs);
    EXPECT_EQ(answer({{"fast", 1}, {"", 2}}), needs);
    EXPECT_EQ(answer({{"fast", 1}, {"exact", 2}, {"FAST", 3}}), needs);
    EXPECT_EQ(answer({{"fast", 1}, {"faster", 1}}), "none");
}

TEST(CommandLine, ReadsTypesOfTheTool) {
    EXPECT_EQ(lineOf(definition(), {"-n=red"}).value<paint::Colour>("-n")->code, 31);
    EXPECT_EQ(refusal([] { lineOf(definition(), {"-n=x"}).value<paint::Colour>("-n"); }), "-n=x: not a colour");
}

TEST(CommandLine, RefusesOptionsThatShareAForm) {
    const auto answer = [](const Kelp::Option& first, const Kelp::Option& second) {
        Definition tool;
        tool.options = {{"-x", "", "", Kelpkit::isSwitch}, first, second};
        return mistake([&] { lineOf(tool, {}); });
    };
    EXPECT_EQ(answer({"-n", "--number", "", true}, {"-m", "--name", "", true}), "none");
    EXPECT_EQ(answer({"-n", "", "", true}, {"-m", "", "", true}), "none");
    EXPECT_EQ(answer({"-n", "-n", "", true}, {"-m", "", "", true}), "none");
    EXPECT_EQ(answer({"-n", "--number", "", true}, {"-n", "--name", "", true}),
              "two options of the tool are called -n");
    EXPECT_EQ(answer({"-v", "--verbose", "", false}, {"-V", "--version", "", false}),
              "two options of the tool are called -V");
    EXPECT_EQ(answer({"-n", "--number", "", true}, {"-m", "--NUMBER", "", true}),
              "two options of the tool are called --NUMBER");
    EXPECT_EQ(answer({"-n", "--number", "", true}, {"--Number", "-m", "", true}),
              "two options of the tool are called --Number");
    EXPECT_EQ(answer({"-n", "--number", "", true}, {"-m", "-N", "", true}), "two options of the tool are called -N");
    EXPECT_EQ(answer({"-n", "--number", "", true}, {"", "--name", "", true}),
              "an option of the tool has no short form: --name");
    EXPECT_EQ(answer({"", "", "", true}, {"-n", "", "", true}), "an option of the tool has no short form: ");
}

TEST(CommandLine, NamesTheFormThatWasMeant) {
    Definition tool = definition();
    tool.options.emplace_back("-3", "--three", "", Kelpkit::isSwitch);
    const auto answer = [&tool](const std::vector<std::string>& tokens) {
        return refusal([&] { lineOf(tool, tokens); });
    };
    EXPECT_EQ(answer({"--versoin"}), "--versoin: no such option");
    EXPECT_EQ(answer({"--version"}), "--version: no such option");
    EXPECT_EQ(answer({"--version=3"}), "--version: no such option");
    tool.version = "1.0";
    EXPECT_EQ(answer({"--versoin"}), "--versoin: no such option; did you mean --version?");
    EXPECT_EQ(answer({"--version"}), "--version: no such option");
    EXPECT_EQ(answer({"--VERSION=3"}), "--VERSION=3: --VERSION takes no value");
    EXPECT_EQ(answer({"--help"}), "--help: no such option");
    EXPECT_EQ(answer({"--Help=5"}), "--Help=5: --Help takes no value");
    EXPECT_EQ(answer({"-h=5"}), "-h=5: -h takes no value");
    EXPECT_EQ(answer({"-help"}), "-help: no such option; did you mean --help?");
    EXPECT_EQ(answer({"-n", "-4"}), "-n needs its value attached: -n=-4");
    EXPECT_EQ(answer({"-n", "-.5x"}), "-n needs its value attached: -n=-.5x");
    for (const char* next : {"-3", "-3=1", "-x5", "-", "-.", "-.x5", "--5", "-x.5"}) {
        EXPECT_EQ(answer({"-n", next}), "-n needs its value attached: -n=VALUE") << next;
    }
    EXPECT_EQ(answer({"-n3=4"}), "-n needs its value attached: -n=3=4");
    EXPECT_EQ(answer({"-nubmer=4"}), "-nubmer: no such option; did you mean --number?");
    EXPECT_EQ(answer({"-l3"}), "-l3: one option at a time: -l -3");
    EXPECT_EQ(answer({"-ll"}), "-ll: no such option");
    EXPECT_EQ(answer({"-l3L"}), "-l3L: no such option");
}

TEST(CommandLine, CutsLongTokens) {
    const Definition tool = definition({{"FILE", "", false}});
    const auto answer = [&tool](const std::vector<std::string>& tokens) {
        return refusal([&] { lineOf(tool, tokens).value<int>("-n"); });
    };
    const std::string x96(96, 'x');
    const std::string whole = "whole number from -2147483648 to 2147483647";
    EXPECT_EQ(answer({"-n=x" + x96, "a"}), "-n=x" + x96 + ": not a " + whole);
    EXPECT_EQ(answer({"-n=xx" + x96, "a"}), "-n=x" + x96 + "...: not a " + whole);
    EXPECT_EQ(answer({"-n=" + x96 + "\xC3\xA9", "a"}), "-n=" + x96 + "...: not a " + whole);
    EXPECT_EQ(answer({"-n=" + x96.substr(2) + "\xF0\x9F\x98\x80", "a"}), "-n=" + x96.substr(2) + "...: not a " + whole);
    EXPECT_EQ(answer({"-n=" + std::string(200, '\x80'), "a"}), "-n=" + std::string(94, '\x80') + "...: not a " + whole);
    const std::string x(130'000, 'x');
    const std::string cut = std::string(100, 'x') + "...";
    EXPECT_EQ(answer({"-" + x}), "-" + cut.substr(1) + ": no such option");
    EXPECT_EQ(answer({"-" + x + "=1"}), "-" + cut.substr(1) + ": no such option");
    EXPECT_EQ(answer({"-n" + x}), "-n needs its value attached: -n=" + cut);
    EXPECT_EQ(answer({"-n", x}), "-n needs its value attached: -n=" + cut);
    EXPECT_EQ(answer({"-l=" + x}), "-l=" + cut.substr(3) + ": -l takes no value");
    EXPECT_EQ(answer({"-n=" + x, "-n=" + x}), "-n is given twice: -n=" + cut.substr(3) + ", -n=" + cut.substr(3));
    EXPECT_EQ(answer({"-ln=" + x}), "-ln=" + cut.substr(4) + ": one option at a time: -l -n=" + cut.substr(6));
    EXPECT_EQ(answer({"a", x}), "\"" + cut + "\": one argument too many");
    EXPECT_EQ(refusal([&] { lineOf(definition(), {x}); }), "\"" + cut + "\": no arguments are expected");
}

TEST(CommandLine, IgnoresEmptyForms) {
    Definition tool = definition({{"FILE", "", true}});
    tool.options = {{"-a", "", "all", Kelpkit::isSwitch}};
    EXPECT_EQ(refusal([&] { lineOf(tool, {"", "x"}); }), "accepted");
    EXPECT_EQ(refusal([&] { lineOf(tool, {"-a", "x"}); }), "accepted");
    EXPECT_EQ(refusal([&] { lineOf(tool, {"-=", "x"}); }), "-: no such option");
    EXPECT_EQ(mistake([&] { static_cast<void>(lineOf(tool, {"x"}).has("")); }),
              "the tool asks for the option , which it does not define");
}

TEST(CommandLine, IsVerboseWithEitherForm) {
    Definition tool = definition();
    tool.options = {{"-v", "--verb", "", Kelpkit::isSwitch}};
    EXPECT_TRUE(lineOf(tool, {"--VERB"}).isVerbose());
    tool.options = {{"-w", "--verbose", "", Kelpkit::isSwitch}};
    EXPECT_TRUE(lineOf(tool, {"-w"}).isVerbose());
    EXPECT_FALSE(lineOf(tool, {}).isVerbose());
    EXPECT_FALSE(lineOf(definition(), {"-l"}).isVerbose());
}

/// Tokens that are refused or answered if they are read.
struct Beyond {
    char name[3] = "-h";
    char first[2] = "a";
    char help[3] = "-h";
    char version[10] = "--version";
};

TEST(CommandLine, EndsWithItsCount) {
    Beyond words;
    char* argv[] = {words.name, words.first, words.help, words.version, nullptr};
    Definition tool = definition({{"FILE", "", false}});
    tool.version = "1.0";
    EXPECT_EQ(CommandLine(tool, 2, argv).arguments(), std::vector<std::string>{"a"});
    EXPECT_FALSE(Kelpkit::asksForHelp(2, argv));
    EXPECT_TRUE(Kelpkit::asksForHelp(3, argv));
    EXPECT_FALSE(Kelpkit::asksForVersion(tool, 3, argv));
    EXPECT_TRUE(Kelpkit::asksForVersion(tool, 4, argv));
}

TEST(CommandLine, EndsAtANullPointer) {
    Beyond words;
    char loud[] = "-l";
    char* argv[] = {words.name, nullptr, loud, words.help};
    EXPECT_FALSE(CommandLine(definition(), 3, argv).has("-l"));
    EXPECT_FALSE(CommandLine(definition(), 0, argv).has("-l"));
    EXPECT_FALSE(Kelpkit::asksForHelp(4, argv));
}

TEST(CommandLine, AsksForTheVersionInEitherForm) {
    const auto asks = [](const Definition& tool, const std::string& token) {
        Arguments line{"tool", token};
        return Kelpkit::asksForVersion(tool, line.argc(), line.argv());
    };
    Definition tool = definition();
    EXPECT_FALSE(asks(tool, "--version"));
    tool.version = "1.0";
    EXPECT_TRUE(asks(tool, "--Version"));
    EXPECT_FALSE(asks(tool, "--versio"));
    EXPECT_FALSE(asks(tool, "-n"));
    EXPECT_FALSE(asks(tool, ""));
    tool.options = {{"-x", "", "", Kelpkit::isSwitch}, {"-w", "--VERSION", "", Kelpkit::isSwitch}};
    EXPECT_TRUE(asks(tool, "-W"));
    EXPECT_TRUE(asks(tool, "--version"));
    EXPECT_FALSE(asks(tool, "-x"));
    tool.options = {{"", "--version", "", Kelpkit::isSwitch}};
    EXPECT_TRUE(asks(tool, "--version"));
    EXPECT_FALSE(asks(tool, ""));
}

TEST(CommandLine, UsageShowsOptionsAndArguments) {
    using Options = std::vector<Kelp::Option>;
    using Arguments = std::vector<Kelp::Argument>;
    constexpr bool value = Kelpkit::takesValue;
    constexpr bool flag = Kelpkit::isSwitch;
    const Options known{{"-h", "--help", "", flag}, {"-V", "--Verbose", "", flag}};
    const Arguments two{{"ONE", "", false}, {"MORE", "", true}};
    const struct {
        Options options;
        Arguments arguments;
        std::size_t optional;
        std::string usage;
    } cases[] = {
        {{}, {}, 0, "[OPTIONS]"},
        {known, {}, 0, "[OPTIONS]"},
        {{}, two, 0, "[OPTIONS] ONE MORE..."},
        {known, two, 1, "[OPTIONS] ONE [MORE...]"},
        {known, two, 3, "[OPTIONS] [ONE] [MORE...]"},
        {{{"-f", "--force", "", flag}}, {}, 0, "[-f]"},
        {{{"-n", "--number", "", value}}, two, 0, "[-n=NUMBER] ONE MORE..."},
        {{{"-n", "--number", "", value}, known[0], {"-f", "", "", flag}, known[1]},
         two,
         1,
         "[-n=NUMBER] [-f] ONE [MORE...]"},
        {{{"-m", "--Max-count_2", "", value}}, {}, 0, "[-m=MAX-COUNT_2]"},
        {{{"-m", "", "", value}}, {}, 0, "[-m=VALUE]"},
        {{{"-m", "--", "", value}}, {}, 0, "[-m=VALUE]"},
        {{{"-m", "--a|b", "", value}}, {}, 0, "[-m=VALUE]"},
        {{{"-g", "--gr\u00f6sse", "", value}}, {}, 0, "[-g=VALUE]"},
        // With the same letters as -h, --help and -v, --verbose
        {{{"-h", "--help", "", value}}, {}, 0, "[-h=HELP]"},
        {{{"-h", "--hash", "", flag}, {"-x", "--help", "", flag}}, {}, 0, "[-h] [-x]"},
        {{{"-v", "--volume", "", value}, {"-v", "--version", "", flag}}, {}, 0, "[-v=VOLUME] [-v]"},
    };
    for (const auto& row : cases) {
        Definition tool = definition(row.arguments, row.optional);
        tool.options = row.options;
        EXPECT_EQ(Kelpkit::usageOf(tool), row.usage);
        tool.usage = "ONE or MORE";
        EXPECT_EQ(Kelpkit::usageOf(tool), "ONE or MORE");
    }
}

TEST(CommandLine, UsageShowsOptionsInOneLine) {
    // "  lines [-n=NUMBER] " precedes the argument.
    Definition tool{"lines", "", {{"-n", "--number", "", Kelpkit::takesValue}}, {{std::string(59, 'X'), "", false}}};
    EXPECT_EQ(Kelpkit::usageOf(tool), "[-n=NUMBER] " + std::string(59, 'X'));
    tool.arguments[0].name += 'X';
    EXPECT_EQ(Kelpkit::usageOf(tool), "[OPTIONS] " + std::string(60, 'X'));
    // A character of two bytes
    tool.arguments[0].name = std::string(58, 'X') + "\u00c4";
    EXPECT_EQ(Kelpkit::usageOf(tool), "[-n=NUMBER] " + std::string(58, 'X') + "\u00c4");
}

TEST(CommandLine, IgnoresTheCaseOfLettersAlone) {
    using Kelpkit::equalIgnoringCase;
    EXPECT_TRUE(equalIgnoringCase("-AZaz", "-azAZ"));
    EXPECT_FALSE(equalIgnoringCase("@", "`"));
    EXPECT_FALSE(equalIgnoringCase("[", "{"));
    EXPECT_FALSE(equalIgnoringCase("\xC4", "\xE4"));
    EXPECT_FALSE(equalIgnoringCase("a", "ab"));
    EXPECT_FALSE(equalIgnoringCase("ab", "a"));
}

}  // namespace
