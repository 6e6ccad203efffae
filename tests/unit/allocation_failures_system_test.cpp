// Every allocation of every public entry point fails once: the reader, and what looks at the system.
#include <kelplib/CommandLineTool.h>

#include <functional>

#include "arguments.h"
#include "failing_allocations.h"
#include "fake_keyboard.h"
#include "fake_platform.h"
#include "scoped_variable.h"

namespace {

using failing_allocations::failEach;

const std::string longText(50, 'x');

Arguments& line() {
    static Arguments tokens{
        "/" + longText + "/tool", ".", "-o=/" + longText, "--oops=/" + longText, longText, "-v", longText};
    return tokens;
}

TEST(AllocationFailures, OfTheReaderLeaveItUsable) {
    const auto make = [] { return std::make_unique<Kelp::OptionReader>(line().argc(), line().argv()); };
    const auto check = [](Kelp::OptionReader& reader) {
        std::string value;
        return reader.getValue("-o", "", value, 0) == 3 && value == "/" + longText &&
               reader.hasOption("-v", "", 0) == 5;
    };
    const auto fail = [&](const char* name, const std::function<void(Kelp::OptionReader&)>& use) {
        failEach(name, make, use, check);
    };
    fail("construction", [](Kelp::OptionReader& reader) { reader = Kelp::OptionReader(line().argc(), line().argv()); });
    fail("hasOption", [](Kelp::OptionReader& reader) { reader.hasOption(longText, longText, 0); });
    fail("hasOption of an option", [](Kelp::OptionReader& reader) {
        reader.hasOption({longText, longText, "", true}, 0);
    });
    fail("getValue", [](Kelp::OptionReader& reader) {
        std::string value;
        reader.getValue("-o", longText, value, 0);
    });
    fail("getValue of texts", [](Kelp::OptionReader& reader) {
        std::vector<std::string> value;
        reader.getValue("-o", longText, value, 0);
    });
    fail("getFirstArgument", [](Kelp::OptionReader& reader) {
        std::string argument;
        reader.getFirstArgument(argument, 2);
    });
    fail("getArguments", [](Kelp::OptionReader& reader) {
        std::vector<std::string> arguments;
        reader.getArguments(arguments, 0);
    });
    fail("getOptions", [](Kelp::OptionReader& reader) {
        std::vector<std::string> tokens;
        reader.getOptions(tokens);
    });
    fail("getNameTool", [](Kelp::OptionReader& reader) { reader.getNameTool(); });
    fail("checkFiles", [](Kelp::OptionReader& reader) {
        std::string file;
        reader.checkFiles(file, 2);
    });
}

template <class Record>
void failCopies(const char* name, const Record& record, const Record& other, std::string Record::*text) {
    failEach(name, [&] { std::make_unique<Record>(record); });
    failEach(
        name, [&] { return std::make_unique<Record>(other); }, [&](Record& target) { target = record; },
        [&](Record& target) {
            target = other;
            return target.*text == other.*text;
        });
}

TEST(AllocationFailures, OfCopiedRecordsLeaveThemUsable) {
    const std::string name = "n" + longText;
    failCopies<Kelp::Option>("option", {longText, longText, longText, true}, {"-a", name, "", false},
                             &Kelp::Option::longFlag);
    failCopies<Kelp::Argument>("argument", {longText, longText, true}, {name, "", false}, &Kelp::Argument::name);
    failCopies<Kelp::StringDouble>("StringDouble", {longText, 2}, {"n", 1}, &Kelp::StringDouble::label);
}

struct KnownReader {
    Kelp::OptionReader reader;
    std::vector<std::string> answers;
};

/// Every token, and what the reader says about some of them.
std::vector<std::string> answersOf(Kelp::OptionReader& reader) {
    std::vector<std::string> answers;
    reader.getOptions(answers);
    std::string value;
    answers.push_back(std::to_string(reader.getValue("-o", "", value, 0)) + " " + value);
    answers.push_back(std::to_string(reader.getFirstArgument(value, 2)) + " " + value);
    answers.push_back(std::to_string(reader.hasOption("-v", "", 0)) + (reader.getVerbose() ? " verbose" : " quiet"));
    return answers;
}

void failAssignments(const char* name, const KnownReader& target, const KnownReader& source) {
    bool assigned = false;
    failEach(
        name, [&] { return std::make_unique<Kelp::OptionReader>(target.reader); },
        [&](Kelp::OptionReader& reader) {
            assigned = false;
            reader = source.reader;
            assigned = true;
        },
        [&](Kelp::OptionReader& reader) { return answersOf(reader) == (assigned ? source : target).answers; });
}

TEST(AllocationFailures, OfAnAssignmentLeaveTheReaderAsItWas) {
    Arguments few{"tool", "-o=a", "in", "-v"};
    Arguments many{"t", "-x", "-y", "in.txt", "-V", "-o=" + longText};
    const KnownReader shorter{{few.argc(), few.argv()}, {"tool", "-o=a", "in", "-v", "2 a", "2 in", "3 quiet"}};
    KnownReader longer{{many.argc(), many.argv()},
                       {"t", "-x", "-y", "in.txt", "-V", "-o=" + longText, "6 " + longText, "3 in.txt", "4 verbose"}};
    longer.reader.setVerbose(true);
    failAssignments("a longer one over a shorter one", shorter, longer);
    failAssignments("a shorter one over a longer one", longer, shorter);
}

TEST(AllocationFailures, OfTheInstallLocationComeOut) {
    const ScopedVariable path("PATH", "/opt/tarn/" + longText + ";" + longText);
    failEach("getFilePath", [] { getFilePath(); });
}

// The wait sees the key at its first look, because the pause before it lasts until the reading thread is done.
TEST(AllocationFailures, OfAWaitComeOut) {
    FakeKeyboard keyboard;
    for (int i = 0; i < 100; ++i) {
        keyboard.press();
    }
    fake_platform::reset();
    fake_platform::state().sleepsMilliseconds.reserve(100);
    int waits = 0;
    fake_platform::state().onSleep = [&](unsigned int) { keyboard.waitForEnds(++waits); };
    failEach("waitOrPressKey", [] { Kelp::waitOrPressKey(0, longText); });
    fake_platform::reset();
}

}  // namespace
