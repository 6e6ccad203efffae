#include <iostream>

#include "arguments.h"
#include "scenario.h"

namespace {

void checkMandatoryArgsLater(const char* argument) {
    Arguments line{"tool", argument};
    CommandLineTool tool(line.argc(), line.argv(), "Does a job", Kelp::Option("-o", "--output", "the result", false));
    tool.checkMandatoryArgs();
    std::cout << "[running]\n";
}

void checkInvalidFlagsAgain() {
    Arguments line{"tool"};
    CommandLineTool tool(line.argc(), line.argv(), "Does a job");
    tool.checkForInvalidFlags();
    std::cout << "[running]\n";
}

}  // namespace

std::vector<Scenario> checkScreens() {
    return {
        {"invalid_x.short",
         [] {
             startSmallTool({"tool", "-x"});
         }},
        {"invalid_x.long",
         [] {
             startSmallTool({"tool", "--x"});
         }},
        {"invalid_x.long_with_value",
         [] {
             startSmallTool({"tool", "a", "--xyz=5", "b"});
         }},
        {"invalid_x.first_of_two",
         [] {
             startSmallTool({"tool", "-o=a", "-x", "-y"});
         }},
        {"invalid_x.value_of_option",
         [] {
             startSmallTool({"tool", "-o", "-x"});
         }},
        {"invalid_program_path", [] { startSmallTool({"-x"}); }},
        {"invalid_x.in_verbose_mode",
         [] {
             startSmallTool({"tool", "-v", "-x"});
         }},
        {"invalid_capital",
         [] {
             startSmallTool({"tool", "-X"});
         }},
        {"invalid_number",
         [] {
             startSmallTool({"tool", "-5"});
         }},
        {"invalid_dash",
         [] {
             startSmallTool({"tool", "-"});
         }},
        {"invalid_two_dashes",
         [] {
             startSmallTool({"tool", "--"});
         }},
        {"invalid_three_dashes",
         [] {
             startSmallTool({"tool", "---o"});
         }},
        {"invalid_help_prefix",
         [] {
             startSmallTool({"tool", "-help"});
         }},
        {"invalid_verbose",
         [] {
             Arguments line{"tool", "-v"};
             const CommandLineTool tool(line.argc(), line.argv(), "Does a job");
         }},
        {"invalid_beside_slash",
         [] {
             Arguments line{"tool", "/x", "-x"};
             const CommandLineTool tool(line.argc(), line.argv(), "Does a job",
                                        Kelp::Option("/x", "/extra", "more", false));
         }},
        {"running.accepted_flags",
         [] {
             startSmallTool({"tool", "-o", "-O", "--output", "--oops", "-out", "/x", ""});
         }},
        {"running.no_flags", [] { startSmallTool({"tool"}); }},
        {"running.no_tokens", [] { startSmallTool({}); }},
        {"running.checked_again", checkInvalidFlagsAgain},
        {"running.mandatory_argument", [] { checkMandatoryArgsLater("."); }},
        {"mandatory_missing", [] { checkMandatoryArgsLater("-o"); }},
        {"mandatory_not_there", [] { checkMandatoryArgsLater("no such file"); }},
    };
}
