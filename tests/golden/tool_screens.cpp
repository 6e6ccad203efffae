#include <iostream>

#include "arguments.h"
#include "scenario.h"

namespace {

using Options = std::vector<Kelp::Option>;
using Positionals = std::vector<Kelp::Argument>;

Kelp::Option outputOption() {
    return {"-o", "--output", "the result", false};
}

// A tool with -o and -v, constructed with the short constructor.

void startSmallTool(const CommandLine& row) {
    Arguments line(row.tokens);
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job", outputOption(),
                               Kelp::Option("-v", "--verbose", "prints more", false));
    std::cout << "[running]\n";
}

void addSmallTool(Scenarios& scenarios) {
    const std::vector<CommandLine> rows = {
        {"help.dash_h", {"tool", "-h"}},
        {"help.dash_capital_h", {"tool", "-H"}},
        {"help.dash_help", {"tool", "--help"}},
        {"help.dash_capital_help", {"tool", "--HELP"}},
        {"help.slash_h", {"tool", "/h"}},
        {"help.slash_help", {"tool", "/Help"}},
        {"help.slash_question_mark", {"tool", "/?"}},
        {"help.after_other_tokens", {"tool", "a", "-o=x", "-h"}},
        {"help.before_invalid_flags", {"tool", "-x", "-h"}},
        {"help_hidden_at_program_path.question_marks", {"/?", "/?"}},
        {"help_hidden_at_program_path.slash_h", {"/h", "/help"}},
        {"help_hidden_dash", {"--help", "-h"}},
        {"help_of_other_pair", {"/h", "/?"}},
        {"invalid_x.short", {"tool", "-x"}},
        {"invalid_x.long", {"tool", "--x"}},
        {"invalid_x.long_with_value", {"tool", "a", "--xyz=5", "b"}},
        {"invalid_x.first_of_two", {"tool", "-o=a", "-x", "-y"}},
        {"invalid_x.value_of_option", {"tool", "-o", "-x"}},
        {"invalid_x.in_verbose_mode", {"tool", "-v", "-x"}},
        {"invalid_program_path", {"-x"}},
        {"invalid_capital", {"tool", "-X"}},
        {"invalid_number", {"tool", "-5"}},
        {"invalid_dash", {"tool", "-"}},
        {"invalid_two_dashes", {"tool", "--"}},
        {"invalid_three_dashes", {"tool", "---o"}},
        {"invalid_help_prefix", {"tool", "-help"}},
        {"running.accepted_flags", {"tool", "-o", "-O", "--output", "--oops", "-out", "/x", ""}},
        {"running.no_flags", {"tool"}},
        {"running.no_tokens", {}},
        {"running.no_tool_name", {"C:\\x\\ab", "-o"}},
        {"no_tool_name_help", {"C:\\x\\ab", "-h"}},
        {"no_tool_name_invalid_flag", {"C:\\x\\ab", "-x"}},
    };
    addRows(scenarios, rows, startSmallTool);
}

// A tool with -o, -Number and -v and the arguments "input" and "more", constructed with the full constructor.

struct FullCommandLine {
    const char* name;
    Tokens tokens;
    const char* usage = "";
};

void startFullTool(const FullCommandLine& row) {
    Arguments line(row.tokens);
    Options options{outputOption(), {"-Number", "", "how many", true}, {"-v", "--verbose", "prints more", false}};
    Positionals arguments{{"input", "what is read", false}, {"more", "", true}};
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job", row.usage, "-o=b a", "\tMade for tests", options,
                               arguments);
    std::cout << "[running]\n";
}

void addFullTool(Scenarios& scenarios) {
    const std::vector<FullCommandLine> rows = {
        {"help_full.file_first", {"tool", ".", "-h"}},
        {"help_full.pattern", {"tool", "--help", "*"}},
        {"help_with_usage", {"tool", ".", "-h"}, "FILE [more...]"},
        {"file_missing.alone", {"tool"}},
        {"file_missing.before_help", {"tool", "-h"}},
        {"file_missing.before_invalid_flag", {"tool", "-x"}},
        {"file_missing_no_tokens", {}},
        {"file_not_there.alone", {"tool", "missing.txt"}},
        {"file_not_there.before_help", {"tool", "missing.txt", "-h"}},
        {"file_not_there.first_argument", {"tool", "-v", "missing.txt", "."}},
        {"running.full_with_file", {"tool", "."}},
        {"running.full_with_pattern", {"tool", "-v=1", "no/*"}},
        {"full_short_form_of_a_word.value", {"tool", ".", "-Number=1"}},
        {"full_short_form_of_a_word.alone", {"tool", ".", "-Number"}},
        {"full_invalid_flag", {"tool", ".", "--x"}},
        {"no_tool_name_file_missing.short", {"C:\\x\\ab"}},
        {"no_tool_name_file_missing.empty", {"C:\\x\\"}},
    };
    addRows(scenarios, rows, startFullTool);
}

// Help for other options.

struct OptionsRow {
    const char* name;
    Options options;
};

void showHelp(const OptionsRow& row) {
    Arguments line{"tool", "-h"};
    Options options = row.options;
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job", options);
}

void addHelp(Scenarios& scenarios) {
    const std::vector<OptionsRow> rows = {
        {"help_ignores_case",
         {{"zeta", "z", "last", false}, {"Alpha", "a", "first", false}, {"beta", "b", "mid", false}}},
        {"help_first_registration", {{"-x", "--first", "kept", false}, {"-X", "--second", "dropped", false}}},
        {"help_empty_texts", {{"", "", "", false}, {"-\xC4", "\t", "two\nlines", true}}},
    };
    addRows(scenarios, rows, showHelp);
}

void helpWithoutDescription() {
    Arguments line{"tool", "-h"};
    const CommandLineTool tool(line.argc(), line.argv(), "");
}

void helpOfRunningTool() {
    Arguments line{"tool"};
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job");
    tool.help();
}

void usageWithLateRegistrations() {
    Arguments line{"C:\\tools\\Tool.Exe", "a"};
    CommandLineTool tool(line.argc(), line.argv(), "Does a job", outputOption());
    tool.addExampleText("first");
    tool.addExampleText("second");
    tool.registerOption({"-A", "--late", "registered late", false});
    tool.registerOption({"-a", "--dropped", "registered too late", false});
    tool.printUsage();
}

// Checks.

void refuseVerboseFlag() {
    Arguments line{"tool", "-v"};
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job");
}

void refuseDashFlagBesideSlashOption() {
    Arguments line{"tool", "/x", "-x"};
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job", Kelp::Option("/x", "/extra", "more", false));
}

void checkInvalidFlagsAgain() {
    Arguments line{"tool"};
    CommandLineTool tool(line.argc(), line.argv(), "Does a job");
    tool.checkForInvalidFlags();
    std::cout << "[running]\n";
}

void checkMandatoryArguments(const CommandLine& row) {
    Arguments line(row.tokens);
    CommandLineTool tool(line.argc(), line.argv(), "Does a job", outputOption());
    tool.checkMandatoryArgs();
    std::cout << "[running]\n";
}

void addMandatoryArguments(Scenarios& scenarios) {
    const std::vector<CommandLine> rows = {
        {"running.mandatory_argument", {"tool", "."}},
        {"mandatory_missing", {"tool", "-o"}},
        {"mandatory_not_there", {"tool", "no such file"}},
    };
    addRows(scenarios, rows, checkMandatoryArguments);
}

// A tool that is initialized again with another command line.

struct SecondCommandLine {
    const char* name;
    Tokens first;
    Tokens second;
    bool noFileCheck;
};

void initAgain(const SecondCommandLine& row) {
    Arguments line(row.first);
    CommandLineTool tool(line.argc(), line.argv(), "Does a job", outputOption());
    std::cout << "[first start]\n";
    Arguments again(row.second);
    tool.init(again.argc(), again.argv(), row.noFileCheck);
    std::cout << "[running]\n";
}

void addSecondCommandLines(Scenarios& scenarios) {
    const std::vector<SecondCommandLine> rows = {
        {"again_help_on_new_tokens", {"tool", "a"}, {"tool", "-h"}, true},
        {"again_running.help_on_new_tokens_of_other_form", {"tool", "a"}, {"tool", "/h"}, true},
        {"again_running.file_of_old_tokens", {"tool", "."}, {"tool", "missing.txt"}, false},
        {"again_running.old_tokens_stay", {"tool", "a"}, {"-x"}, true},
        {"again_file_not_there", {"tool", "missing.txt"}, {"tool", "."}, false},
    };
    addRows(scenarios, rows, initAgain);
}

}  // namespace

Scenarios toolScreens() {
    Scenarios scenarios = {
        {"help_of_nothing", helpWithoutDescription},
        {"help_alone", helpOfRunningTool},
        {"help_registered_late", usageWithLateRegistrations},
        {"invalid_verbose", refuseVerboseFlag},
        {"invalid_beside_slash", refuseDashFlagBesideSlashOption},
        {"running.checked_again", checkInvalidFlagsAgain},
    };
    addSmallTool(scenarios);
    addFullTool(scenarios);
    addHelp(scenarios);
    addMandatoryArguments(scenarios);
    addSecondCommandLines(scenarios);
    return scenarios;
}
