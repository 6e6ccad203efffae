#include <gtest/gtest.h>
#include <kelpkit/Definition.h>
#include <kelpkit/Files.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "page_samples.h"
#include "rules.h"
#include "shell_words.h"

namespace {

using Kelpkit::Definition;
using Kelpkit::isSwitch;
using Kelpkit::report;
using Kelpkit::takesValue;
using page_samples::pageSamples;
using page_samples::pageTool;

Definition faultless() {
    return {"firstlines",
            "Shows the first lines of a text.",
            {{"-n", "--number", "how many lines to show", takesValue},
             {"-o", "--output", "write to this file", takesValue},
             {"-q", "--quiet", "no messages", isSwitch},
             {"-h", "--help", "show this help", isSwitch}},
            {{"FILE", "the text to show", false}},
            "-n=3 notes.txt",
            "",
            "",
            "",
            0};
}

using Change = std::function<void(Definition&)>;

/// A change of the faultless definition.
struct Case {
    const char* rule;  ///< its name, for the count of rules with a sample
    Change change;
    std::string text;  ///< the whole report; empty for a neighbour of the sample
};

std::string reportAfter(const Change& change) {
    Definition definition = faultless();
    change(definition);
    return report(definition);
}

/// Adds an option.
Change option(const std::string& shortForm, const std::string& longForm, bool value = isSwitch,
              const std::string& text = "some text") {
    return [=](Definition& tool) { tool.options.emplace_back(shortForm, longForm, text, value); };
}

/// Adds an argument, and to the example a word for it.
Change argument(const std::string& name, bool repeated = false, const std::string& text = "some text") {
    return [=](Definition& tool) {
        tool.arguments.emplace_back(name, text, repeated);
        tool.example += " another";
    };
}

Change set(std::string Definition::*member, const std::string& text) {
    return [=](Definition& tool) { tool.*member = text; };
}

Change both(const Change& first, const Change& second) {
    return [=](Definition& tool) {
        first(tool);
        second(tool);
    };
}

void oneOptionalArgument(Definition& tool) {
    tool.optionalArguments = 1;
}

/// Lets the argument be repeated, with a usage line and, unless it is empty, another example.
Change repeatedFile(const std::string& usage, const std::string& example = "") {
    return [=](Definition& tool) {
        tool.arguments[0].repeated = true;
        tool.usage = usage;
        tool.example = example.empty() ? tool.example : example;
    };
}

const std::string sameLetter =
    ": an earlier option has this letter, so this one cannot be used; choose another letter\n";
const std::string shortForm =
    ": the library refuses every command line with this short form; use \"-\" and one ASCII letter\n";
const std::string longLetter =
    ": a tool without the kit reads this long form as the option of its first letter; let both forms begin with the "
    "same letter\n";
const std::string longForm =
    ": no command line can contain this long form; use \"--\" and a name without blanks and \"=\"\n";
const std::string emptyLong =
    ": the help screen shows an empty long form, and the library takes an empty argument for the option; "
    "give it a long form\n";
const std::string helpTaken =
    ": the tool answers with its help screen instead; keep -h and --help for the help, as a switch\n";
const std::string verboseTaken =
    ": the option also switches verbose mode on; keep -v and --verbose for verbose mode, as a switch\n";
const std::string versionLetter =
    ": letter case does not matter, so the short form counts as -v, the flag of verbose mode; leave --version to a definition's "
    "version, or use another name\n";
const std::string outputLetter =
    ": users expect -o to name the output file; keep -o for --output with a value, and choose another "
    "letter\n";
const std::string usageNames =
    ": the usage line does not fit the options and arguments; correct the usage line, or leave it empty\n";
const std::string refused = ": a tool of the kit refuses this example; correct the example\n";
const std::string argumentName =
    ": the usage line cannot be read with this name; use letters, digits, \"-\" and \"_\", a letter "
    "first\n";
const std::string emptyText = ": the help screen does not say what it means; describe it\n";
const std::string control =
    ": a control character, or a byte that is not UTF-8, disturbs the help screen; use one line of plain text\n";
const std::string tooLong = ": the line of the help screen does not fit into 80 columns; shorten the text\n";
const std::string fileName =
    ": not every system allows a file of this name; use letters, digits, \"-\", \"_\", \"+\" and \".\", a letter or "
    "digit first, and no device name of Windows\n";

const Case optionCases[] = {
    {"same-letter", option("-n", "--name"), "error same-letter -n" + sameLetter},
    {"same-letter", option("-N", "--Name"), "error same-letter -N" + sameLetter},
    {"same-letter", option("-m", "--name2"), "warning long-letter --name2" + longLetter},
    {"same-letter", option("-m", "--mode"), ""},
    {"same-letter", both(option("-a", "--all"), option("-Z", "--zero")), ""},

    {"short-form", option("n", "--name"), "error short-form n" + shortForm},
    {"short-form", option("", "--name"), "error short-form --name" + shortForm},
    {"short-form", option("-", "--name"), "error short-form -" + shortForm},
    {"short-form", option("--", "--name"), "error short-form --" + shortForm},
    {"short-form", option("-=", "--name"), "error short-form -=" + shortForm},
    {"short-form", option("- ", "--name"), "error short-form - " + shortForm},
    {"short-form", option("-\x1f", "--name"), "error short-form -\\x1f" + shortForm},
    {"short-form", option("-\x7f", "--name"), "error short-form -\\x7f" + shortForm},
    {"short-form", option("-\xc3\xa4", "--name"), "error short-form -\xc3\xa4" + shortForm},
    {"short-form", option("-ab", "--ab"), "error short-form -ab" + shortForm},
    {"short-form", option("+a", "--add"), "error short-form +a" + shortForm},
    {"short-form", option("/h", "--slash"), "error short-form /h" + shortForm},
    {"short-form", option("-!", "--!"), ""},
    {"short-form", option("-~", "--~"), ""},

    {"long-letter", option("-x", "--exact"), "warning long-letter --exact" + longLetter},
    {"long-letter", option("-x", "---x"), "warning long-letter ---x" + longLetter},
    {"long-letter", option("-e", "--Exact"), ""},
    {"long-letter", option("-E", "--exact"), ""},

    {"long-form", option("-x", "x"), "error long-form x" + longForm},
    {"long-form", option("-x", "-x-ray"), "error long-form -x-ray" + longForm},
    {"long-form", option("-x", "--"), "error long-form --" + longForm},
    {"long-form", option("-x", "--x ray"), "error long-form --x ray" + longForm},
    {"long-form", option("-x", "--x=ray"), "error long-form --x=ray" + longForm},
    {"long-form", option("-x", "--x\tray"), "error long-form --x\\x09ray" + longForm},
    {"long-form", option("-x", "--x\xff"), "error long-form --x\\xff" + longForm},
    {"long-form", option("-x", "--x\xc3\xa4"), ""},
    {"long-form", option("-x", "--x-ray"), ""},
    {"long-form", option("-x", "--x"), ""},

    {"empty-long", option("-x", ""), "warning empty-long -x" + emptyLong},
    {"empty-long", option("-x", "--xy"), ""},

    {"help-taken",
     [](Definition& tool) {
         tool.options.back() = {"-h", "--height", "x", takesValue};
     },
     "error help-taken -h" + helpTaken},
    {"help-taken", [](Definition& tool) { tool.options.back().marker = takesValue; },
     "error help-taken -h" + helpTaken},
    {"help-taken", option("-?", "--help"),
     "warning long-letter --help" + longLetter + "error help-taken -?" + helpTaken},
    {"help-taken",
     [](Definition& tool) {
         tool.options.back() = {"-H", "--HELP", "x", isSwitch};
     },
     ""},
    {"help-taken",
     [](Definition& tool) {
         tool.options.back() = {"-h", "", "x", isSwitch};
     },
     "warning empty-long -h" + emptyLong},

    {"no-help", [](Definition& tool) { tool.options.pop_back(); },
     "warning no-help: the help screen does not list the option that shows it; list the option -h, --help\n"},
    {"no-help",
     [](Definition& tool) {
         tool.options.erase(tool.options.begin());
         tool.example = "a";
     },
     ""},

    {"verbose-taken", option("-v", "--vertical"), "warning verbose-taken -v" + verboseTaken},
    {"verbose-taken", option("-V", "--versions"), "warning verbose-taken -V" + verboseTaken},
    {"verbose-taken", both(option("-V", "--versions"), set(&Definition::version, "1.0")),
     "warning verbose-taken -V" + verboseTaken},
    {"verbose-taken", option("-v", "--verbose", takesValue), "warning verbose-taken -v" + verboseTaken},
    {"verbose-taken", option("-v", "--verbose"), ""},
    {"verbose-taken", option("-V", "--Verbose"), ""},

    {"version-letter", option("-V", "--version"), "warning version-letter -V" + versionLetter},
    {"version-letter", option("-v", "--Version", takesValue), "warning version-letter -v" + versionLetter},
    {"version-letter", both(option("-V", "--version"), set(&Definition::version, "1.0")), ""},
    {"version-letter", both(option("-v", "--version", takesValue), set(&Definition::version, "1.0")),
     "warning version-letter -v" + versionLetter},
    {"version-letter", option("-w", "--version"), "warning long-letter --version" + longLetter},
    {"version-letter", set(&Definition::version, "1.0"), ""},

    {"output-letter",
     [](Definition& tool) {
         tool.options[1] = {"-o", "--output", "x", isSwitch};
     },
     "warning output-letter -o" + outputLetter},
    {"output-letter",
     [](Definition& tool) {
         tool.options[1] = {"-O", "--offset", "x", takesValue};
     },
     "warning output-letter -O" + outputLetter},
    {"output-letter",
     [](Definition& tool) {
         tool.options[1] = {"-o", "--outfile", "x", takesValue};
     },
     ""},
    {"output-letter",
     [](Definition& tool) {
         tool.options[1] = {"-O", "--OUT", "x", takesValue};
     },
     ""},
    {"output-letter",
     [](Definition& tool) {
         tool.options[1] = {"-o", "", "x", takesValue};
     },
     "warning empty-long -o" + emptyLong},

    {"digit", option("-3", "--3d"), "note digit -3: the option looks like a negative number; use a letter\n"},
    {"digit", option("-d", "--d3"), ""},
};

const Case lineCases[] = {
    {"usage-names", set(&Definition::usage, "[-x] FILE"), "warning usage-names -x" + usageNames},
    {"usage-names", set(&Definition::usage, "[--numbers=N] FILE"), "warning usage-names --numbers" + usageNames},
    {"usage-names", set(&Definition::usage, "[-n] FILE"), "warning usage-names -n" + usageNames},
    {"usage-names", set(&Definition::usage, "[-q=N|-h] FILE"), "warning usage-names -q" + usageNames},
    {"usage-names", set(&Definition::usage, "[-n=N]"), "warning usage-names FILE" + usageNames},
    {"usage-names", set(&Definition::usage, "[--version] FILE"), "warning usage-names --version" + usageNames},
    {"usage-names", both(set(&Definition::usage, "[--version] FILE"), set(&Definition::version, "1.0")), ""},
    {"usage-names", set(&Definition::usage, "[-h|--help|-Q|{--QUIET}]... (-n=1|2|3) -o=O... - FILE"), ""},
    {"usage-names", set(&Definition::usage, "-n[=LINES] [--] <FILE>"), ""},
    {"usage-names", set(&Definition::usage, "[-n=A,-B] FILE"), ""},
    {"usage-names", set(&Definition::usage, "(-q FILE)"), ""},
    {"usage-names", set(&Definition::usage, "[-q] LINES FILE"), "warning usage-names LINES" + usageNames},
    {"usage-names", set(&Definition::usage, "[-q] <lines> FILE"), "warning usage-names lines" + usageNames},
    {"usage-names", set(&Definition::usage, "[-q] lines FILE"), ""},
    {"usage-names", set(&Definition::usage, "[-q LINES] FILE"), "warning usage-names -q" + usageNames},
    {"usage-names", set(&Definition::usage, "[-q <lines>] FILE"), "warning usage-names -q" + usageNames},
    {"usage-names", set(&Definition::usage, "[OPTIONS] FILE"), ""},
    {"usage-names", set(&Definition::usage, "<options> FILE"), ""},
    {"usage-names", set(&Definition::usage, "[OPTION]... FILE"), ""},
    {"usage-names", set(&Definition::usage, "[-n=FILE]"), "warning usage-names FILE" + usageNames},
    {"usage-names", set(&Definition::usage, "[-n=FILE] FILE"), ""},
    {"usage-names", set(&Definition::usage, "PROFILE"),
     "warning usage-names FILE" + usageNames + "warning usage-names PROFILE" + usageNames},
    {"usage-names", set(&Definition::usage, "FILE OUTPUT"), "warning usage-names OUTPUT" + usageNames},
    {"usage-names", set(&Definition::usage, "FILE|URL"), ""},
    {"usage-names", set(&Definition::usage, "<url> | <FILE>"), ""},
    {"usage-names", set(&Definition::usage, "FILE or URL"), ""},
    {"usage-names", set(&Definition::usage, "-q|-h FILE OUTPUT"), "warning usage-names OUTPUT" + usageNames},

    {"usage-names", set(&Definition::usage, "FILE..."), "warning usage-names FILE" + usageNames},
    {"usage-names", set(&Definition::usage, "FILE [FILE...]"), "warning usage-names FILE" + usageNames},
    {"usage-names", repeatedFile("FILE"), "warning usage-names FILE" + usageNames},
    {"usage-names", repeatedFile("FILE..."), ""},
    {"usage-names", repeatedFile("FILE [FILE ...]"), ""},
    {"usage-names", repeatedFile("([-q] FILE)..."), ""},
    {"usage-names", repeatedFile("(FILE -n=N)..."), ""},
    {"usage-names", repeatedFile("{FILE [-q]}..."), ""},
    {"usage-names", repeatedFile("-n=N... FILE"), "warning usage-names FILE" + usageNames},

    {"usage-names", set(&Definition::usage, "[FILE]"), "warning usage-names FILE" + usageNames},
    {"usage-names", set(&Definition::usage, "[FILE | -q]"), "warning usage-names FILE" + usageNames},
    {"usage-names", set(&Definition::usage, "FILE or --help"), ""},
    {"usage-names", set(&Definition::usage, "FILE | --help"), ""},
    {"usage-names", set(&Definition::usage, "(--help | FILE)"), ""},
    {"usage-names", both(set(&Definition::usage, "FILE"), oneOptionalArgument),
     "warning usage-names FILE" + usageNames},
    {"usage-names", both(set(&Definition::usage, "[FILE]"), oneOptionalArgument), ""},
    {"usage-names",
     both(set(&Definition::usage, "[-q|-h] [FILE]"), [](Definition& tool) { tool.optionalArguments = 9; }), ""},
    {"usage-names", both(set(&Definition::usage, "[FILE] SECOND"), both(argument("SECOND"), oneOptionalArgument)),
     "warning usage-names SECOND" + usageNames},

    {"usage-names", set(&Definition::usage, "firstlines FILE"), "warning usage-names firstlines" + usageNames},
    {"usage-names", set(&Definition::usage, "FILE firstlines"), ""},
    {"usage-names", both(set(&Definition::usage, "FILE"), set(&Definition::name, "FILE")), ""},
    {"usage-names", both(set(&Definition::usage, "LIST FILE"), set(&Definition::name, "LIST")),
     "warning usage-names LIST" + usageNames},

    {"usage-names",
     [](Definition& tool) {
         tool.arguments = {{"NAME", "a name and its text", true}};
         tool.usage = "[-n=N] NAME=TEXT...";
     },
     ""},
    {"usage-names", set(&Definition::usage, "NAME=TEXT FILE"), ""},
    {"usage-names", set(&Definition::usage, "NAME=FILE"), "warning usage-names FILE" + usageNames},
    {"usage-names",
     [](Definition& tool) {
         tool.options.pop_back();
         tool.usage = "--help FILE";
     },
     "warning no-help: the help screen does not list the option that shows it; list the option -h, --help\n"},

    {"example-refused", set(&Definition::example, "-x notes.txt"), "warning example-refused -x" + refused},
    {"example-refused", set(&Definition::example, "-n 3 notes.txt"), "warning example-refused -n" + refused},
    {"example-refused", set(&Definition::example, "-n3 notes.txt"), "warning example-refused -n3" + refused},
    {"example-refused", set(&Definition::example, "--numb=3 notes.txt"), "warning example-refused --numb=3" + refused},
    {"example-refused", set(&Definition::example, "-q=1 notes.txt"), "warning example-refused -q=1" + refused},
    {"example-refused", set(&Definition::example, "-n=1 --number=2 notes.txt"),
     "warning example-refused --number=2" + refused},
    {"example-refused", set(&Definition::example, "-n=1"), "warning example-refused FILE" + refused},
    {"example-refused", set(&Definition::example, "firstlines notes.txt"),
     "warning example-refused firstlines" + refused},
    {"example-refused", set(&Definition::example, "firstlines --help"), "warning example-refused firstlines" + refused},
    {"example-refused", repeatedFile("", "firstlines notes.txt"), "warning example-refused firstlines" + refused},
    {"example-refused", repeatedFile("", "notes.txt firstlines"), ""},
    {"example-refused", set(&Definition::example, "firstlines"), ""},  // a file of this name
    {"example-refused", set(&Definition::example, "firstlines -x notes.txt"), "warning example-refused -x" + refused},
    {"example-refused", set(&Definition::example, "a b"), "warning example-refused b" + refused},
    {"example-refused", set(&Definition::example, "a --version"), "warning example-refused --version" + refused},
    {"example-refused", [](Definition& tool) { tool.arguments.clear(); },
     "warning example-refused notes.txt" + refused},
    {"example-refused",
     [](Definition& tool) {
         tool.arguments.clear();
         tool.example = "-q";
     },
     ""},
    {"example-refused", set(&Definition::example, "-N=1 --QUIET notes.txt -o='a b' | sort -r > out"), ""},
    {"example-refused", set(&Definition::example, "--help"), ""},
    {"example-refused", set(&Definition::example, "/h a b"), ""},
    {"example-refused", set(&Definition::example, "-Q a b"), "warning example-refused b" + refused},
    {"example-refused",
     both(option("-y", "--version"), both(set(&Definition::example, "-Y"), set(&Definition::version, "1"))),
     "warning long-letter --version" + longLetter},
    {"example-refused",
     both(option("-y", "--yes"), both(set(&Definition::example, "-y"), set(&Definition::version, "1"))),
     "warning example-refused FILE" + refused},
    {"example-refused", set(&Definition::example, "- 2>/dev/null"), "warning example-refused -" + refused},
    {"example-refused", set(&Definition::example, "-- a"), "warning example-refused --" + refused},
    {"example-refused", set(&Definition::example, "'' 2>/dev/null"), ""},
    {"example-refused", both(set(&Definition::example, "--version"), set(&Definition::version, "1")), ""},
    {"example-refused",
     [](Definition& tool) {
         tool.arguments[0].repeated = true;
         tool.example = "a b c";
     },
     ""},
    {"example-refused",
     [](Definition& tool) {
         tool.optionalArguments = 1;
         tool.example = "-q";
     },
     ""},
    {"example-refused",
     [](Definition& tool) {
         tool.optionalArguments = 7;
         tool.example = "-q";
     },
     ""},

    {"no-example", set(&Definition::example, ""),
     "warning no-example: the help screen ends with an empty example; add an example\n"},
    {"no-example", set(&Definition::example, "a"), ""},
};

const Case textCases[] = {
    {"name-twice", argument("FILE"),
     "warning name-twice FILE: the help screen shows two arguments of this name; rename one of them\n"},
    {"name-twice", argument("FILE2"), ""},

    {"argument-name", argument(""), "warning argument-name" + argumentName},
    {"argument-name", argument("-A"), "warning argument-name -A" + argumentName},
    {"argument-name", argument("A B"), "warning argument-name A B" + argumentName},
    {"argument-name", argument("A..."), "warning argument-name A..." + argumentName},
    {"argument-name", argument("[A]"), "warning argument-name [A]" + argumentName},
    {"argument-name", argument("1A"), "warning argument-name 1A" + argumentName},
    {"argument-name", argument("A\n"), "warning argument-name A\\x0a" + argumentName},
    {"argument-name", argument("Input-file_2"), ""},

    {"repeated-not-last",
     [](Definition& tool) {
         tool.arguments[0].repeated = true;
         argument("TARGET")(tool);
     },
     "error repeated-not-last FILE: the usage line promises several of these arguments, but only the last one can be repeated; move "
     "it to the end\n"},
    {"repeated-not-last", argument("SOURCES", true), ""},

    {"no-description", set(&Definition::description, ""),
     "warning no-description: the help screen does not say what the tool does; add a description\n"},
    {"no-description", set(&Definition::description, "x"), ""},

    {"empty-text", option("-x", "--xy", isSwitch, ""), "warning empty-text -x" + emptyText},
    {"empty-text", argument("X", false, ""), "warning empty-text X" + emptyText},
    {"empty-text", option("", "--xy", isSwitch, ""),
     "error short-form --xy" + shortForm + "warning empty-text --xy" + emptyText},
    {"empty-text", option("-x", "--xy", isSwitch, " "), ""},

    {"control-character", set(&Definition::description, "two\nlines"),
     "warning control-character description" + control},
    {"control-character", set(&Definition::example, "a\x1b[0m"), "warning control-character example" + control},
    {"control-character", set(&Definition::usage, "FILE \x7f"), "warning control-character usage" + control},
    {"control-character", set(&Definition::banner, std::string(1, '\0')), "warning control-character banner" + control},
    {"control-character", set(&Definition::version, "1\r"), "warning control-character version" + control},
    {"control-character", option("-x", "--xy", isSwitch, "a\tb"), "warning control-character -x" + control},
    {"control-character", argument("X", false, "\x1f"), "warning control-character X" + control},
    {"control-character", set(&Definition::description, "\xff"), "warning control-character description" + control},
    {"control-character",
     set(&Definition::description,
         "\xc2\x9b"
         "31m"),
     "warning control-character description" + control},
    {"control-character", set(&Definition::description, " !~\xc3\xa4"), ""},

    {"too-long", set(&Definition::description, std::string(80, 'x')), "note too-long description" + tooLong},
    {"too-long", set(&Definition::description, std::string(79, 'x')), ""},
    {"too-long", set(&Definition::description, std::string(78, 'x') + "\xe2\x82\xac"), ""},
    // "  -x, --xy: ", "  X: ", "  firstlines " and "firstlines " precede the texts.
    {"too-long", option("-x", "--xy", isSwitch, std::string(68, 'x')), "note too-long -x" + tooLong},
    {"too-long", option("-x", "--xy", isSwitch, std::string(67, 'x')), ""},
    {"too-long", argument("X", false, std::string(75, 'x')), "note too-long X" + tooLong},
    {"too-long", argument("X", false, std::string(74, 'x')), ""},
    {"too-long", set(&Definition::example, std::string(67, 'x')), "note too-long example" + tooLong},
    {"too-long", set(&Definition::example, std::string(66, 'x')), ""},
    {"too-long", set(&Definition::usage, "FILE " + std::string(99, 'x')), ""},
    {"too-long", argument(std::string(52, 'x')), ""},
    {"too-long", set(&Definition::banner, std::string(80, 'x')), "note too-long banner" + tooLong},
    {"too-long", set(&Definition::version, std::string(69, 'x')), "note too-long version" + tooLong},
    {"too-long", set(&Definition::version, std::string(68, 'x')), ""},

    {"file-name", set(&Definition::name, "first lines"), "warning file-name first lines" + fileName},
    {"file-name", set(&Definition::name, ""), "warning file-name" + fileName},
    {"file-name", set(&Definition::name, "-first"), "warning file-name -first" + fileName},
    {"file-name", set(&Definition::name, ".first"), "warning file-name .first" + fileName},
    {"file-name", set(&Definition::name, "_first"), "warning file-name _first" + fileName},
    {"file-name", set(&Definition::name, "+first"), "warning file-name +first" + fileName},
    {"file-name", set(&Definition::name, "first."), "warning file-name first." + fileName},
    {"file-name", set(&Definition::name, "a/first"), "warning file-name a/first" + fileName},
    {"file-name", set(&Definition::name, "f\xc3\xbcnf"), "warning file-name f\xc3\xbcnf" + fileName},
    {"file-name", set(&Definition::name, "NUL"), "warning file-name NUL" + fileName},
    {"file-name", set(&Definition::name, "com1.tool"), "warning file-name com1.tool" + fileName},
    {"file-name", set(&Definition::name, "console"), ""},
    {"file-name", set(&Definition::name, "First-lines_2.0+"), ""},

    {"file-name", set(&Definition::name, "cat"), ""},
};

/// The rules that need a help screen or a run of the tool, or matter only without the kit.
const std::set<std::string> rulesBeyondDefinitions{"short-name",         "other-name",  "value-unknown",
                                                   "no-verbose",         "no-output",   "asked-by-long-name",
                                                   "asked-unregistered", "late-option", "file-demanded"};

template <class Table>
void checkTable(const Table& table, std::set<std::string>& sampled, std::set<std::string>& neighbours) {
    for (const Case& each : table) {
        EXPECT_EQ(reportAfter(each.change), each.text) << each.rule;
        if (each.text.find(std::string(" ") + each.rule) != std::string::npos) {
            sampled.insert(each.rule);
        } else {
            neighbours.insert(each.rule);
        }
    }
}

TEST(KitReport, AcceptsAFaultlessDefinition) {
    EXPECT_EQ(report(faultless()), "");
}

TEST(KitReport, EveryRuleHasASampleAndANeighbour) {
    std::set<std::string> sampled = rulesBeyondDefinitions;
    std::set<std::string> neighbours = sampled;
    checkTable(optionCases, sampled, neighbours);
    checkTable(lineCases, sampled, neighbours);
    checkTable(textCases, sampled, neighbours);
    for (const Kelpkit::rules::Rule& rule : Kelpkit::rules::table()) {
        EXPECT_EQ(sampled.count(std::string(rule.name)), 1U) << rule.name;
        EXPECT_EQ(neighbours.count(std::string(rule.name)), 1U) << rule.name;
    }
}

TEST(KitReport, HostileTextsGivePrintableLines) {
    const std::string texts[] = {"",
                                 " ",
                                 std::string(1, '\0'),
                                 "\n",
                                 "\xff",
                                 "\xc2\x9b",
                                 "%s%n",
                                 "-",
                                 "--",
                                 "=",
                                 "'",
                                 "\\",
                                 "[",
                                 "...",
                                 std::string(10000, 'x'),
                                 std::string(10000, '[')};
    for (const std::string& text : texts) {
        Definition tool{text, text, {}, {{text, text, true}, {text, text, false}}, text, text, text, text, 9};
        for (int i = 0; i < 100; ++i) {
            tool.options.emplace_back(i % 2 == 0 ? text : "-" + text, i % 3 == 0 ? text : "--" + text, text,
                                      i % 5 == 0);
        }
        std::istringstream lines(report(tool));
        for (std::string line; std::getline(lines, line);) {
            EXPECT_EQ(line, Kelpkit::printable(line));
            EXPECT_TRUE(line.find("error ") == 0 || line.find("warning ") == 0 || line.find("note ") == 0) << line;
        }
    }
}

TEST(KitReport, AnEmptyDefinition) {
    EXPECT_EQ(report({}),
              "warning no-help: the help screen does not list the option that shows it; list the option -h, --help\n"
              "warning no-description: the help screen does not say what the tool does; add a description\n"
              "warning no-example: the help screen ends with an empty example; add an example\n"
              "warning file-name" +
                  fileName);
}

TEST(KitReport, WindowsReservesTheNamesOfDevices) {
    for (const char* name : {"con",  "prn",  "aux",  "nul",  "com1", "com2", "com3", "com4", "com5", "com6", "com7",
                             "com8", "com9", "lpt1", "lpt2", "lpt3", "lpt4", "lpt5", "lpt6", "lpt7", "lpt8", "lpt9"}) {
        EXPECT_EQ(reportAfter(set(&Definition::name, name)), std::string("warning file-name ") + name + fileName);
    }
    for (const char* name : {"comx", "com0", "lpt0", "lptx"}) {
        EXPECT_EQ(reportAfter(set(&Definition::name, name)), "");
    }
}

TEST(KitReport, OneFindingALine) {
    EXPECT_EQ(reportAfter(both(option("-n", "--name\n"), option("-3", "--three"))),
              "error long-form --name\\x0a" + longForm + "error same-letter -n" + sameLetter +
                  "warning long-letter --three" + longLetter +
                  "note digit -3: the option looks like a negative number; use a letter\n");
}

TEST(KitRules, ToolsWithoutTheKit) {
    const auto linesOf = [](const std::string& name, const std::string& longForm) {
        std::string lines;
        const Kelpkit::rules::Tool tool{
            name, "x", {{"-h", "--help", "x", false}, {"-n", longForm, "x", false}}, {}, "-n", "", "", "", 0};
        for (const Kelpkit::rules::Finding& finding : Kelpkit::rules::check(tool)) {
            lines += lineOf(finding) + "\n";
        }
        return lines;
    };
    EXPECT_EQ(linesOf("cats", "--lines"), "error long-letter --lines" + longLetter);
    EXPECT_EQ(
        linesOf("cat", "--number"),
        "note short-name cat: on Windows a tool without the kit cannot show its help screen when it is started by its path "
        "without .exe; use at least four letters\n");
    EXPECT_EQ(linesOf("cats", "--number"), "");
}

TEST(KitRules, ValueUnknown) {
    Kelpkit::rules::Tool tool;
    tool.options.push_back({"-h", "--help", "help", false});
    const auto findings = [&] {
        std::vector<Kelpkit::rules::Finding> found;
        Kelpkit::rules::checkOptions(tool, found);
        return found;
    };
    tool.options.push_back({"-n", "--number", "a number", true});
    EXPECT_TRUE(findings().empty());
    tool.options.back().takesValue.reset();
    ASSERT_EQ(findings().size(), 1U);
    EXPECT_EQ(
        Kelpkit::rules::lineOf(findings().front()),
        "warning value-unknown -n: nothing says whether the option takes a value, so users and completions have to guess; show "
        "it in the usage or example line");
    // An example may use such an option in both ways.
    for (const char* example : {"-n", "-n=3"}) {
        std::vector<Kelpkit::rules::Finding> found;
        tool.example = example;
        Kelpkit::rules::checkExample(tool, found);
        EXPECT_TRUE(found.empty()) << example;
    }
}

std::string rulesPage() {
    std::ifstream file(KELPKIT_RULES_PAGE);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string reportOfPageTool(void (*change)(Definition& tool)) {
    Definition definition = pageTool.second;
    change(definition);
    return report(definition);
}

std::string withoutBlanks(std::string text) {
    text.erase(std::remove_if(text.begin(), text.end(), [](char each) { return each == ' ' || each == '\n'; }),
               text.end());
    return text;
}

TEST(KitRules, ThePageHasASampleAndANeighbourOfEveryRule) {
    const std::string page = rulesPage();
    EXPECT_NE(withoutBlanks(page).find(withoutBlanks(pageTool.first)), std::string::npos);
    EXPECT_EQ(report(pageTool.second), "");
    std::set<std::string> sampled = rulesBeyondDefinitions;
    for (const auto& each : pageSamples) {
        const std::string finding = reportOfPageTool(each.sample);
        const bool isReported = each.rule != std::string("short-name");
        EXPECT_EQ(finding.find(std::string(" ") + each.rule) != std::string::npos, isReported) << each.rule << "\n"
                                                                                               << finding;
        EXPECT_EQ(std::count(finding.begin(), finding.end(), '\n'), isReported ? 1 : 0) << finding;
        EXPECT_EQ(reportOfPageTool(each.neighbour), "") << each.rule;
        const std::size_t section = page.find("\n### " + std::string(each.rule) + "\n");
        ASSERT_NE(section, std::string::npos) << each.rule;
        const std::string text = page.substr(section, page.find("\n### ", section + 1) - section);
        const std::string samples =
            std::string("\n- finding: `") + each.sampleText + "`\n- none: `" + each.neighbourText + "`\n";
        EXPECT_NE(text.find(samples), std::string::npos) << samples;
        sampled.insert(each.rule);
    }
    for (const Kelpkit::rules::Rule& rule : Kelpkit::rules::table()) {
        EXPECT_EQ(sampled.count(std::string(rule.name)), 1U) << rule.name;
    }
}

TEST(KitRules, ThePageShowsTheTable) {
    const std::string page = rulesPage();
    for (const Kelpkit::rules::Rule& rule : Kelpkit::rules::table()) {
        std::string row = "| `";
        row.append(rule.name).append("` | ").append(Kelpkit::rules::nameOf(rule.severity)).append(" | ");
        row.append(rule.consequence).append(" | ").append(rule.cure).append(" |\n");
        EXPECT_NE(page.find(row), std::string::npos) << row;
        EXPECT_NE(page.find("\n### " + std::string(rule.name) + "\n"), std::string::npos) << rule.name;
    }
    std::size_t sections = 0;
    for (std::size_t at = page.find("\n### "); at != std::string::npos; at = page.find("\n### ", at + 1)) {
        ++sections;
    }
    EXPECT_EQ(sections, Kelpkit::rules::count);
}

TEST(ShellWords, EndWithTheFirstCommand) {
    using Words = std::vector<std::string>;
    const std::pair<std::string, Words> table[] = {
        {"", {}},
        {"  \t ", {}},
        {"a", {"a"}},
        {" a  b\tc ", {"a", "b", "c"}},
        {"'a b' \"c d\"", {"a b", "c d"}},
        {"-o='a b'c", {"-o=a bc"}},
        {"''", {""}},
        {"a '' b", {"a", "", "b"}},
        {"'a", {"a"}},
        {R"("a\"b\)", {R"(a"b\)"}},
        {"'a\\' b", {"a\\", "b"}},
        {"a\\ b \\", {"a b", "\\"}},
        {"a|b", {"a"}},
        {"a ; b", {"a"}},
        {"a & b", {"a"}},
        {"a # b", {"a"}},
        {"a#b", {"a#b"}},
        {"a > b", {"a"}},
        {"a >b", {"a"}},
        {"a 2> b", {"a"}},
        {"a2> b", {"a2"}},
        {"12 < b", {"12"}},
        {"< b", {}},
        {"'a|b;c' d", {"a|b;c", "d"}},
    };
    for (const auto& [line, words] : table) {
        EXPECT_EQ(Kelpkit::shellWords(line), words) << line;
    }
}

}  // namespace
