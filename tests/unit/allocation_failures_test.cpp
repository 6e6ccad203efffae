// Every allocation of every public entry point fails once: values, helpers and scanners. The texts are long, so that each of
// them lies in memory of its own.
#include <kelplib/FilePath.h>
#include <kelplib/Kelp.h>

#include <functional>

#include "arguments.h"
#include "failing_allocations.h"
#include "fake_platform.h"
#include "locale_facets.h"
#include "scoped_locale.h"

namespace {

using failing_allocations::failEach;

const std::string longText(50, 'x');

struct Case {
    const char* name;
    std::function<void()> run;
};

void failEachOf(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        failEach(each.name, each.run);
    }
}

/// Reads a text, over an old value that has to stay readable.
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

TEST(AllocationFailures, OfTextHelpersComeOut) {
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

TEST(AllocationFailures, OfScannersComeOut) {
    Arguments line{"tool",          "-o=" + longText, longText, "--number=1234567890123456789",
                   "-o" + longText, "-tr=1:2",        "-sr=1:2"};
    const int argc = line.argc();
    char** const argv = line.argv();
    failEachOf({
        {"getNextFlag", [=] { Kelp::getNextFlag(argc, argv, "--nothing-of-that-name", 0); }},
        {"getHelpFlag", [=] { Kelp::getHelpFlag(argc, argv); }},
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
    fail("questions", [](FilePath& path) {
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

}  // namespace
