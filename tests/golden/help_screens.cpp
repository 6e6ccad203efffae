#include "arguments.h"
#include "scenario.h"

namespace {

void startBareTool(std::vector<std::string> tokens) {
    Arguments line(std::move(tokens));
    const CommandLineTool tool(line.argc(), line.argv(), "");
}

void helpWithOptions(Options options) {
    Arguments line{"tool", "-h"};
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job", options);
}

void usageOfRegisteredLate() {
    Arguments line{"C:\\tools\\Tool.Exe", "a"};
    CommandLineTool tool(line.argc(), line.argv(), "Does a job", Kelp::Option("-o", "--output", "the result", false));
    tool.addExampleText("first");
    tool.addExampleText("second");
    tool.registerOption({"-A", "--late", "registered late", false});
    tool.registerOption({"-a", "--dropped", "registered too late", false});
    tool.printUsage();
}

void helpWithoutBanner() {
    Arguments line{"tool"};
    const CommandLineTool tool(line.argc(), line.argv(), "Does a job");
    tool.help();
}

}  // namespace

std::vector<Scenario> helpScreens() {
    return {
        {"help.dash_h",
         [] {
             startSmallTool({"tool", "-h"});
         }},
        {"help.dash_capital_h",
         [] {
             startSmallTool({"tool", "-H"});
         }},
        {"help.dash_help",
         [] {
             startSmallTool({"tool", "--help"});
         }},
        {"help.dash_capital_help",
         [] {
             startSmallTool({"tool", "--HELP"});
         }},
        {"help.slash_h",
         [] {
             startSmallTool({"tool", "/h"});
         }},
        {"help.slash_help",
         [] {
             startSmallTool({"tool", "/Help"});
         }},
        {"help.slash_question_mark",
         [] {
             startSmallTool({"tool", "/?"});
         }},
        {"help.behind_other_tokens",
         [] {
             startSmallTool({"tool", "a", "-o=x", "-h"});
         }},
        {"help.before_invalid_flags",
         [] {
             startSmallTool({"tool", "-x", "-h"});
         }},
        {"help_of_nothing",
         [] {
             startBareTool({"tool", "-h"});
         }},
        {"help_alone", helpWithoutBanner},
        {"help_full.file_first",
         [] {
             startFullTool({"tool", ".", "-h"});
         }},
        {"help_full.pattern",
         [] {
             startFullTool({"tool", "--help", "*"});
         }},
        {"help_with_usage",
         [] {
             startFullTool({"tool", ".", "-h"}, "FILE [more...]");
         }},
        {"help_ignores_case",
         [] {
             helpWithOptions(
                 {{"zeta", "z", "last", false}, {"Alpha", "a", "first", false}, {"beta", "b", "mid", false}});
         }},
        {"help_first_registration",
         [] {
             helpWithOptions({{"-x", "--first", "kept", false}, {"-X", "--second", "dropped", false}});
         }},
        {"help_empty_texts",
         [] {
             helpWithOptions({{"", "", "", false}, {"-\xC4", "\t", "two\nlines", true}});
         }},
        {"help_registered_late", usageOfRegisteredLate},
        {"help_hidden_at_program_path.question_marks",
         [] {
             startSmallTool({"/?", "/?"});
         }},
        {"help_hidden_at_program_path.slash_h",
         [] {
             startSmallTool({"/h", "/help"});
         }},
        {"help_hidden_dash",
         [] {
             startSmallTool({"--help", "-h"});
         }},
        {"help_of_other_pair",
         [] {
             startSmallTool({"/h", "/?"});
         }},
    };
}
