// Every allocation of every public entry point fails once. The texts are long, so each of them needs an allocation.
#include <kelplib/CommandLineTool.h>
#include <kelplib/FilePath.h>
#include <kelplib/Kelp.h>

#include <functional>

#include "arguments.h"
#include "failing_allocations.h"
#include "fake_keyboard.h"
#include "fake_platform.h"
#include "locale_facets.h"
#include "scoped_locale.h"
#include "scoped_variable.h"

namespace {

using failing_allocations::failEach;

const std::string longText(50, 'x');

Arguments& line() {
    static Arguments tokens{
        "/" + longText + "/tool", ".", "-o=/" + longText, "--oops=/" + longText, longText, "-v", longText};
    return tokens;
}

struct Case {
    const char* name;
    std::function<void()> run;
};

void failEachOf(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        failEach(each.name, each.run);
    }
}

// Values.

/// Converts a text. If that fails, the target still takes a value.
template <class T>
void failReading(const char* name, const std::string& text, const T& old) {
    failEach(
        name, [&] { return std::make_unique<T>(old); }, [&](T& value) { Kelp::stringToValue(value, text); },
        [&](T& value) {
            Kelp::stringToValue(value, text);
            T expected = old;
            Kelp::stringToValue(expected, text);
            return value == expected;
        });
}

TEST(AllocationFailures, OfConversionsLeaveTheTargetUsable) {
    const std::string numbers = "1111111111111111111:2222222222222222222222:33333333333333333333";
    const std::string pair = "1111111111111111111:2222222222222222222222";
    failReading<std::string>("string", longText, "old");
    failReading<std::filesystem::path>("path", longText + "/" + longText, "old");
    failReading<std::vector<std::string>>("texts", longText + "," + longText, {"old"});
    failReading<std::set<std::string>>("set of texts", longText + "," + longText + "y", {"old"});
    failReading<std::set<int>>("set of int", "1,2,3,4,5,6,7,8,9", {1});
    failReading<std::set<double>>("set of double", numbers, {1});
    failReading<std::vector<int>>("vector of int", numbers, {1});
    failReading<std::vector<double>>("vector of double", numbers, {1});
    failReading<std::tuple<unsigned int, unsigned int>>("two unsigned int", pair, {1, 2});
    failReading<std::tuple<float, float>>("two float", pair, {1, 2});
    failReading<std::tuple<double, double>>("two double", pair, {1, 2});
    failReading<std::tuple<unsigned int, unsigned int, unsigned int>>("three unsigned int", numbers, {1, 2, 3});
}

TEST(AllocationFailures, OfNumbersLeaveTheTargetUsable) {
    const std::string number = "11111111111111111111111111111111111111111111";
    failReading<bool>("bool", longText, false);
    failReading<char>("char", longText, 'a');
    failReading<int>("int", number, 1);
    failReading<unsigned short>("unsigned short", number, 1);
    failReading<unsigned int>("unsigned int", number, 1);
    failReading<unsigned long long>("unsigned long long", number, 1);
    failReading<double>("double", number, 1);
    failReading<float>("float", number, 1);
}

TEST(AllocationFailures, OfALabelWithItsNumberLeaveTheTargetUsable) {
    failEach(
        "StringDouble",
        [] {
            return std::make_unique<Kelp::StringDouble>(Kelp::StringDouble{"old", 1});
        },
        [](Kelp::StringDouble& value) { Kelp::stringToValue(value, longText + ":2.5"); },
        [](Kelp::StringDouble& value) {
            Kelp::stringToValue(value, "new:2.5");
            return value.label == "new" && value.value == 2.5;
        });
}

TEST(AllocationFailures, UnderAnotherLocaleLeaveTheTargetUsable) {
    const ScopedGlobalLocale scope(new Punctuation("\3"));
    failReading<int>("int", "123.456.789.123.456.789.123.456.789", 1);
    failReading<double>("double", "123.456.789.123.456.789.123.456.789,5", 1);
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

// Text helpers, scanners, paths and the system.

TEST(AllocationFailures, OfTextHelpersReachTheCaller) {
    failEachOf({
        {"split", [] { Kelp::split(longText + "," + longText, ','); }},
        {"Tokenize", [] { Kelp::Tokenize(longText + ", " + longText, ", "); }},
        {"getFirstToken", [] { Kelp::getFirstToken(longText + "," + longText, ','); }},
        {"toLower", [] { Kelp::toLower(longText); }},
        {"replaceToFileExtension", [] { Kelp::replaceToFileExtension(longText + "." + longText, longText); }},
        {"replaceToQ6Extension", [] { Kelp::replaceToQ6Extension(longText + ".txt"); }},
        {"createFragmentName", [] { Kelp::createFragmentName(7, longText, 30); }},
        {"getColoredString", [] { getColoredString(longText, 31); }},
        {"option", [] { std::to_string(Kelp::Option(longText, longText, longText, true)); }},
        {"option of literals", [] { Kelp::Option(longText.c_str(), longText.c_str(), longText.c_str(), true); }},
        {"argument", [] { Kelp::Argument(longText, longText, true).printIndented(1, 2); }},
        {"StringDouble to text",
         [] {
             std::to_string(Kelp::StringDouble{longText, 1e-300});
         }},
        {"doubles to text",
         [] {
             std::to_string(std::vector<double>{1.0 / 3, 2.0 / 3, 1e300});
         }},
        {"texts to text",
         [] {
             std::to_string(std::vector<std::string>{longText, longText});
         }},
        {"text to text", [] { std::to_string(longText); }},
        {"pair to text",
         [] {
             std::to_string(std::tuple<double, double>{1.0 / 3, 2.0 / 3});
         }},
    });
}

TEST(AllocationFailures, OfScannersReachTheCaller) {
    Arguments tokens{"tool",          "-o=" + longText, longText, "--number=1234567890123456789",
                     "-o" + longText, "-tr=1:2",        "-sr=1:2"};
    const int argc = tokens.argc();
    char** const argv = tokens.argv();
    failEachOf({
        {"getStringFlag",
         [=] {
             std::string value;
             Kelp::getStringFlag(argc, argv, "-o", value, 1);
         }},
        {"getMultiStringFlag",
         [=] {
             std::vector<std::string> values;
             Kelp::getMultiStringFlag(argc, argv, "-o", values);
         }},
        {"getIntFlag",
         [=] {
             int value = 0;
             Kelp::getIntFlag(argc, argv, "--number", value, 1);
         }},
        {"getTimeRangeFlag",
         [=] {
             std::array<double, 2> range{};
             Kelp::getTimeRangeFlag(argc, argv, range);
         }},
        {"getStepRangeFlag",
         [=] {
             std::array<int, 2> range{};
             Kelp::getStepRangeFlag(argc, argv, range);
         }},
        {"getFirstFileName", [=] { Kelp::getFirstFileName(argc, argv); }},
        {"getAllArguments", [=] { Kelp::getAllArguments(argc, argv); }},
    });
}

TEST(AllocationFailures, OfPathsLeaveThePathUsable) {
    fake_platform::state().directory = "/" + longText;
    const auto make = [] { return std::make_unique<FilePath>("/" + longText + "/" + longText + "." + longText); };
    const auto check = [](FilePath& path) {
        path.setName("name.txt");
        return path.setPath("/folder/") && path.filePath() == "/folder/name.txt" && path.extension() == "txt";
    };
    const auto fail = [&](const char* name, const std::function<void(FilePath&)>& use) {
        failEach(name, make, use, check);
    };
    fail("absolute path", [](FilePath& path) { path = FilePath("/" + longText + "/" + longText); });
    fail("relative path", [](FilePath& path) { path = FilePath(longText + "/" + longText); });
    fail("fromString", [](FilePath& path) { path.fromString(longText + "/" + longText, '/'); });
    fail("fromNameInCurrentDir", [](FilePath& path) { path.fromNameInCurrentDir(longText + longText); });
    fail("setName", [](FilePath& path) { path.setName(longText + "/" + longText + longText); });
    fail("setPath", [](FilePath& path) { path.setPath("/" + longText + longText); });
    fail("queries", [](FilePath& path) {
        path.filePath();
        path.getPath();
        path.getName();
        path.prefix();
        path.extension();
        FilePath::getCurrentDir();
    });
    fail("getDelim", [](FilePath& path) {
        path.fromString("name", '/');
        path.getDelim();
    });
    fake_platform::reset();
}

TEST(AllocationFailures, OfTheInstallLocationReachTheCaller) {
    const ScopedVariable path("PATH", "/opt/tarn/" + longText + ";" + longText);
    failEach("getFilePath", [] { getFilePath(); });
}

// The sleep of the fake platform lasts until the reading thread has ended, so every wait ends after one sleep.
TEST(AllocationFailures, OfAWaitReachTheCaller) {
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

// The reader.

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

struct KnownReader {
    Kelp::OptionReader reader;
    std::vector<std::string> answers;
};

/// Every token, and the reader's answers about some of them.
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

TEST(AllocationFailures, OfAnAssignmentLeaveTheReaderUnchanged) {
    Arguments few{"tool", "-o=a", "in", "-v"};
    Arguments many{"t", "-x", "-y", "in.txt", "-V", "-o=" + longText};
    const KnownReader shorter{{few.argc(), few.argv()}, {"tool", "-o=a", "in", "-v", "2 a", "2 in", "3 quiet"}};
    KnownReader longer{{many.argc(), many.argv()},
                       {"t", "-x", "-y", "in.txt", "-V", "-o=" + longText, "6 " + longText, "3 in.txt", "4 verbose"}};
    longer.reader.setVerbose(true);
    failAssignments("a longer one over a shorter one", shorter, longer);
    failAssignments("a shorter one over a longer one", longer, shorter);
}

// The tool.

std::vector<Kelp::Option> someOptions() {
    return {{"-o", "--output", longText, true}, {"-v", "--verbose", longText, false}, {"-" + longText, "", "", false}};
}

/// Makes a tool with each of the constructors.
std::vector<std::function<std::unique_ptr<CommandLineTool>()>> constructions() {
    static std::vector<Kelp::Option> options = someOptions();
    static std::vector<Kelp::Argument> arguments{{longText, longText, true}, {"more", longText, false}};
    static Arguments small{"tool", longText};
    return {
        [] { return std::make_unique<CommandLineTool>(small.argc(), small.argv(), longText); },
        [] { return std::make_unique<CommandLineTool>(small.argc(), small.argv(), longText, options[0]); },
        [] { return std::make_unique<CommandLineTool>(small.argc(), small.argv(), longText, options[0], options[1]); },
        [] { return std::make_unique<CommandLineTool>(line().argc(), line().argv(), longText, options); },
        [] {
            return std::make_unique<CommandLineTool>(line().argc(), line().argv(), longText, longText, longText,
                                                     longText, options, arguments);
        },
    };
}

TEST(AllocationFailures, OfConstructionsLeakNothing) {
    for (const auto& construct : constructions()) {
        failEach("construction", [&] { construct(); });
    }
}

struct ScreenShown {};

/// Shows a screen that ends the process; the pause before the end throws instead.
void show(CommandLineTool& tool, void (CommandLineTool::*screen)() const) {
    try {
        (tool.*screen)();
    } catch (const ScreenShown&) {
    }
}

class AllocationFailuresOfTheTool : public testing::Test {
protected:
    using Use = std::function<void(CommandLineTool&)>;

    AllocationFailuresOfTheTool() {
        fake_platform::state().rewoundLines.reserve(100000);
        fake_platform::state().sleepsMilliseconds.reserve(100000);
        fake_platform::state().onSleep = [](unsigned int milliseconds) {
            if (milliseconds == 500) {
                throw ScreenShown();
            }
        };
    }

    ~AllocationFailuresOfTheTool() override {
        fake_platform::reset();
    }

    static void fail(const char* name, const Use& use) {
        failEach(name, constructions().back(), use, [](CommandLineTool& tool) {
            std::list<std::string> arguments;
            std::vector<FilePath> files;
            return tool.hasOption("-V", 0) == 5 && tool.getArguments(arguments, 0) == 3 && tool.isVerbose() &&
                   tool.getOutFiles(files, 0) == 2 && files[1].getName() == longText && tool.getOptions().size() == 3 &&
                   tool.getToolName() == "/" + longText + "/tool";
        });
    }
};

TEST_F(AllocationFailuresOfTheTool, LeaveItUsableAfterChanges) {
    fail("init", [](CommandLineTool& tool) { tool.init(line().argc(), line().argv(), false); });
    fail("registerOption", [](CommandLineTool& tool) {
        tool.registerOption({"-n" + longText, longText, longText, true});
    });
    fail("registerOptions", [](CommandLineTool& tool) {
        std::vector<Kelp::Option> more{{"-a" + longText, "", "", true}, {"-b" + longText, "", "", true}};
        tool.registerOptions(more);
    });
    fail("addExampleText", [](CommandLineTool& tool) { tool.addExampleText(longText + longText); });
    fail("print", [](CommandLineTool& tool) { tool.print(longText); });
}

TEST_F(AllocationFailuresOfTheTool, LeaveItUsableAfterScreens) {
    fail("printHeader", [](CommandLineTool& tool) { tool.printHeader(); });
    fail("help", [](CommandLineTool& tool) { show(tool, &CommandLineTool::help); });
    fail("printUsage", [](CommandLineTool& tool) { show(tool, &CommandLineTool::printUsage); });
}

TEST_F(AllocationFailuresOfTheTool, LeaveItUsableAfterQueries) {
    fail("hasOption", [](CommandLineTool& tool) { tool.hasOption("-" + longText, 0); });
    fail("getFirstArgument", [](CommandLineTool& tool) {
        std::string argument;
        tool.getFirstArgument(argument, 2);
    });
    fail("getArguments", [](CommandLineTool& tool) {
        std::vector<std::string> arguments;
        tool.getArguments(arguments, 0);
    });
    fail("getArguments as a list", [](CommandLineTool& tool) {
        std::list<std::string> arguments;
        tool.getArguments(arguments, 0);
    });
    fail("getOptions", [](CommandLineTool& tool) { tool.getOptions(); });
    fail("getOutFiles", [](CommandLineTool& tool) {
        std::vector<FilePath> files;
        tool.getOutFiles(files, 0);
    });
    fail("getOutFile", [](CommandLineTool& tool) {
        FilePath file;
        tool.getOutFile(file);
    });
    fail("progress", [](CommandLineTool& tool) {
        tool.initProgress(10.0, longText, 20);
        tool.progress(1.0, longText, 20);
    });
}

}  // namespace
