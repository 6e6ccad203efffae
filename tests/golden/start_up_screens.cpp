#include <iostream>

#include "arguments.h"
#include "scenario.h"

namespace {

/// A tool that is started, then initialised again with another command line.
void initAgain(std::vector<std::string> first, std::vector<std::string> second, bool noFileCheck) {
    Arguments line(std::move(first));
    CommandLineTool tool(line.argc(), line.argv(), "Does a job", Kelp::Option("-o", "--output", "the result", false));
    std::cout << "[first start]\n";
    Arguments again(std::move(second));
    tool.init(again.argc(), again.argv(), noFileCheck);
    std::cout << "[running]\n";
}

}  // namespace

std::vector<Scenario> startUpScreens() {
    return {
        {"file_missing.alone", [] { startFullTool({"tool"}); }},
        {"file_missing.before_help",
         [] {
             startFullTool({"tool", "-h"});
         }},
        {"file_missing.before_invalid_flag",
         [] {
             startFullTool({"tool", "-x"});
         }},
        {"file_not_there.alone",
         [] {
             startFullTool({"tool", "missing.txt"});
         }},
        {"file_not_there.before_help",
         [] {
             startFullTool({"tool", "missing.txt", "-h"});
         }},
        {"file_not_there.first_argument",
         [] {
             startFullTool({"tool", "-v", "missing.txt", "."});
         }},
        {"file_missing_no_tokens", [] { startFullTool({}); }},
        {"running.full_with_file",
         [] {
             startFullTool({"tool", "."});
         }},
        {"running.full_with_pattern",
         [] {
             startFullTool({"tool", "-v=1", "no/*"});
         }},
        {"full_short_form_of_a_word.value",
         [] {
             startFullTool({"tool", ".", "-Number=1"});
         }},
        {"full_short_form_of_a_word.alone",
         [] {
             startFullTool({"tool", ".", "-Number"});
         }},
        {"full_invalid_flag",
         [] {
             startFullTool({"tool", ".", "--x"});
         }},
        {"no_tool_name_help",
         [] {
             startSmallTool({"C:\\x\\ab", "-h"});
         }},
        {"no_tool_name_invalid_flag",
         [] {
             startSmallTool({"C:\\x\\ab", "-x"});
         }},
        {"no_tool_name_file_missing.short", [] { startFullTool({"C:\\x\\ab"}); }},
        {"no_tool_name_file_missing.empty", [] { startFullTool({"C:\\x\\"}); }},
        {"running.no_tool_name",
         [] {
             startSmallTool({"C:\\x\\ab", "-o"});
         }},
        {"again_help_on_new_tokens",
         [] {
             initAgain({"tool", "a"}, {"tool", "-h"}, true);
         }},
        {"again_running.help_on_new_tokens_of_other_form",
         [] {
             initAgain({"tool", "a"}, {"tool", "/h"}, true);
         }},
        {"again_running.file_of_old_tokens",
         [] {
             initAgain({"tool", "."}, {"tool", "missing.txt"}, false);
         }},
        {"again_running.old_tokens_stay",
         [] {
             initAgain({"tool", "a"}, {"-x"}, true);
         }},
        {"again_file_not_there",
         [] {
             initAgain({"tool", "missing.txt"}, {"tool", "."}, false);
         }},
    };
}
