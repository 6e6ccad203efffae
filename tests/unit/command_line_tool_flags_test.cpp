#include <gtest/gtest.h>
#include <kelplib/CommandLineTool.h>

#include "arguments.h"
#include "captured_output.h"
#include "fake_platform.h"

namespace {

using namespace std::string_literals;

struct ProcessEnds {};

/// The first line that a tool with one option prints about its flags. The pause before the process ends throws here instead.
std::string complaintAbout(const std::vector<std::string>& flags, const std::string& registered) {
    fake_platform::state().onSleep = [](unsigned int) { throw ProcessEnds(); };
    const CapturedOutput output;
    Arguments line(flags);
    try {
        const CommandLineTool tool(line.argc(), line.argv(), "", Kelp::Option(registered, ""s, ""s, false));
    } catch (const ProcessEnds&) {
    }
    fake_platform::reset();
    return output.text().substr(0, output.text().find('\n'));
}

// A flag is looked up under its key alone: a dash and one character, or the dash of a flag without any.
TEST(CommandLineToolFlags, AreRefusedUnlessTheirWholeKeyIsRegistered) {
    const struct {
        std::string registered;
        std::vector<std::string> flags;
        std::string complaint;
    } cases[] = {
        {"-o", {"tool", "-o"}, ""},
        {"-o", {"tool", "-a"}, "Invalid flag -a. List of valid flags: "},
        {"xo", {"tool", "-o"}, "Invalid flag -o. List of valid flags: "},
        {"/o", {"tool", "-o"}, "Invalid flag -o. List of valid flags: "},
        {".o", {"tool", "-o"}, "Invalid flag -o. List of valid flags: "},
        {"o", {"tool", "-o"}, "Invalid flag -o. List of valid flags: "},
        {"", {"tool", "-o"}, "Invalid flag -o. List of valid flags: "},
        {"-ao", {"tool", "-o"}, "Invalid flag -o. List of valid flags: "},
        {"-ao", {"tool", "-ao"}, "Invalid flag -a. List of valid flags: "},
        {"--o", {"tool", "--o"}, "Invalid flag -o. List of valid flags: "},
        {"-", {"tool", "-"}, ""},
        {"-", {"tool", "--"}, "Invalid flag -\0. List of valid flags: "s},
        {"-", {"tool", "---"}, "Invalid flag --. List of valid flags: "},
        {"-\0"s, {"tool", "--"}, ""},
        {"-\0"s, {"tool", "-"}, "Invalid flag -. List of valid flags: "},
        {"-", {"tool", "-", "--"}, "Invalid flag -\0. List of valid flags: "s},
        {"-\0"s, {"tool", "--", "-"}, "Invalid flag -. List of valid flags: "},
        {"--", {"tool", "---"}, ""},
        {"--", {"tool", "--"}, "Invalid flag -\0. List of valid flags: "s},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(complaintAbout(c.flags, c.registered), c.complaint)
            << c.flags.back() << " where there is " << c.registered;
    }
}

}  // namespace
