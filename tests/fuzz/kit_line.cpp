// Reads a command line strictly, and each value as every type. Whatever the kit accepts, the bare library reads to the same
// value; the model gives a reason for whatever it refuses. Input lines: how many arguments the tool defines, how many of them are
// optional, 1 if the last is repeated, the lowest and the highest number, then the tokens after the program path.
#include <kelpkit/CommandLine.h>
#include <kelplib/FilePath.h>

#include "arguments.h"
#include "check.h"
#include "fake_platform.h"
#include "input.h"
#include "kit_line_model.h"
#include "target.h"

namespace {

using fuzz::expectSame;
namespace model = kit_line_model;

Kelpkit::Definition definitionFor(const model::Counts& counts) {
    Kelpkit::Definition tool;
    tool.name = "tool";
    tool.options = {{"-n", "--number", "", Kelpkit::takesValue},
                    {"-t", "--text", "", Kelpkit::takesValue},
                    {"-l", "--loud", "", Kelpkit::isSwitch},
                    {"-q", "--quick", "", Kelpkit::isSwitch}};
    for (std::size_t i = 0; i < counts.defined; ++i) {
        tool.arguments.emplace_back("ARGUMENT" + std::to_string(i), "", counts.repeated && i + 1 == counts.defined);
    }
    tool.optionalArguments = counts.optional;
    return tool;
}

/// A value on an accepted command line, and where the kit and the bare library find it.
struct Value {
    const Kelpkit::CommandLine& line;
    Kelp::OptionReader& bare;
    std::string flag;
    std::string token;
    std::string text;
};

/// Calls a reading of the kit. Returns its value; none if it is refused, with a message that begins with the token.
template <class Reading>
auto accepted(const Value& value, const char* type, Reading reading) -> decltype(reading()) {
    try {
        return reading();
    } catch (const Kelpkit::UsageError& error) {
        const std::string begin = model::shown(value.token) + ": ";
        const std::string message = error.what();
        if (message.rfind(begin, 0) != 0 || message.size() <= begin.size()) {
            fuzz::fail(std::string(type) + " of " + fuzz::described(value.token) + " prints " +
                       fuzz::described(message));
        }
        return std::nullopt;
    }
}

/// Returns what the bare library reads from the same command line.
template <class T>
T bareValue(const Value& value) {
    T result{};
    if (value.bare.getValue(value.flag, "", result, 1) == 0) {
        fuzz::fail("the library does not find " + fuzz::described(value.token));
    }
    return result;
}

/// Reads a T; the model says whether the kit accepts the text.
template <class T>
std::optional<T> readAs(const char* type, const Value& value, bool isAccepted) {
    auto read = accepted(value, type, [&value] { return value.line.value<T>(value.flag); });
    if (read.has_value() != isAccepted) {
        fuzz::fail(std::string(type) + (isAccepted ? " refuses " : " accepts ") + fuzz::described(value.token));
    }
    return read;
}

template <class T>
void compareWithBare(const char* type, const Value& value, bool isAccepted) {
    if (const auto read = readAs<T>(type, value, isAccepted)) {
        expectSame(type, *read, bareValue<T>(value));
    }
}

template <class T>
void compareNumber(const char* type, const Value& value) {
    compareWithBare<T>(type, value, model::isNumber<T>(value.text));
}

/// The library has no such type; the value is the number that the text means.
template <class T>
void compareWithModel(const char* type, const Value& value) {
    const std::optional<T> expected = model::number<T>(value.text);
    if (const auto read = readAs<T>(type, value, expected.has_value())) {
        expectSame(type, *read, *expected);
    }
}

void compareWholeNumbers(const Value& value) {
    compareNumber<int>("int", value);
    compareNumber<unsigned short>("unsigned short", value);
    compareNumber<unsigned int>("unsigned int", value);
    compareNumber<unsigned long long>("unsigned long long", value);
    compareWithModel<signed char>("signed char", value);
    compareWithModel<unsigned char>("unsigned char", value);
    compareWithModel<short>("short", value);
    compareWithModel<long>("long", value);
    compareWithModel<unsigned long>("unsigned long", value);
    compareWithModel<long long>("long long", value);
}

void compareRealNumbers(const Value& value) {
    compareNumber<double>("double", value);
    compareNumber<float>("float", value);
    compareWithModel<long double>("long double", value);
    compareWithBare<std::vector<double>>("vector of double", value, model::areNumbers<double>(value.text, ':'));
    compareWithBare<std::set<double>>("set of double", value, model::areNumbers<double>(value.text, ':'));
    compareWithBare<std::tuple<double, double>>("two double", value, model::isRange<double>(value.text));
    compareWithBare<std::tuple<float, float>>("two float", value, model::isRange<float>(value.text));
    const bool isLabelled = model::isLabelled(value.text);
    if (const auto read = readAs<Kelp::StringDouble>("StringDouble", value, isLabelled)) {
        const auto expected = bareValue<Kelp::StringDouble>(value);
        expectSame("label", read->label, expected.label);
        expectSame("value of the label", read->value, expected.value);
    }
}

void compareLists(const Value& value) {
    using Triple = std::tuple<unsigned int, unsigned int, unsigned int>;
    compareWithBare<std::vector<int>>("vector of int", value, model::areNumbers<int>(value.text, ':'));
    compareWithBare<std::set<int>>("set of int", value, model::areNumbers<int>(value.text, ','));
    compareWithBare<std::vector<std::string>>("vector of strings", value, model::areTexts(value.text));
    compareWithBare<std::set<std::string>>("set of strings", value, model::areTexts(value.text));
    compareWithBare<std::tuple<unsigned int, unsigned int>>("two unsigned int", value,
                                                            model::isRange<unsigned int>(value.text));
    compareWithBare<Triple>("three numbers", value, model::isTriple(value.text));
}

void compareTexts(const Value& value) {
    compareWithBare<std::string>("string", value, true);
    compareWithBare<char>("char", value, model::isCharacter(value.text));
    const std::string truth = model::truth(value.text);
    if (const auto read = readAs<bool>("bool", value, !truth.empty())) {
        expectSame("bool", *read, truth == "yes");
    }
    if (const auto read = readAs<std::filesystem::path>("path", value, model::isPath(value.text))) {
        if (read->native() != bareValue<std::filesystem::path>(value).native()) {
            fuzz::fail("path of " + fuzz::described(value.token));
        }
    }
    const Kelpkit::Choices<int> choices{{"fast", 1}, {"Exact", 2}};
    const std::string lower = plainLower(value.text);
    const auto choice = accepted(value, "choice", [&] { return value.line.value<int>(value.flag, choices); });
    expectSame("choice", choice.value_or(0), lower == "fast" ? 1 : lower == "exact" ? 2 : 0);
}

void compareOutputFile(const Value& value) {
    const auto file = accepted(value, "output file", [&value] { return value.line.outputFile(value.flag); });
    const std::string& directory = fake_platform::state().directory;
    expectSame("output file is accepted", file.has_value(), model::isOutputFile(value.text, directory));
    if (file) {
        expectSame("name of the output file", *file, model::outputName(value.text, directory));
    }
    // A FilePath of one character throws.
    if (model::onWindows && file && value.text.size() > 1) {
        expectSame("output file", *file, FilePath(bareValue<std::string>(value)).filePath());
    }
}

/// Whether a T lies within limits of int.
template <class T>
bool hasNumber(const Kelpkit::Limits<int>& limits) {
    return !std::is_unsigned_v<T> || *limits.highest >= 0;
}

/// Reads a T within limits; sets isMistake if no T lies within them. A result that is assigned within the try block would have a
/// value in spite of the exception with gcc 12 at -O1.
template <class T>
std::optional<T> readWithin(const char* type, const Value& value, const Kelpkit::Limits<int>& limits, bool& isMistake) {
    try {
        return accepted(value, type, [&] { return value.line.value<T>(value.flag, limits); });
    } catch (const std::logic_error&) {
        isMistake = true;
        return std::nullopt;
    }
}

template <class T>
void compareWithin(const char* type, const Value& value, const Kelpkit::Limits<int>& limits) {
    bool isMistake = false;
    const std::optional<T> read = readWithin<T>(type, value, limits, isMistake);
    expectSame("limits without a number", isMistake, !hasNumber<T>(limits));
    std::optional<T> expected = model::number<T>(value.text);
    const auto wide = static_cast<long double>(expected.value_or(0));
    if (isMistake || wide < *limits.lowest || wide > *limits.highest) {
        expected.reset();
    }
    expectSame((std::string(type) + " within limits is accepted").c_str(), read.has_value(), expected.has_value());
    if (read) {
        expectSame(type, *read, *expected);
    }
}

void compareValue(const Value& value, const Kelpkit::Limits<int>& limits) {
    compareTexts(value);
    compareWholeNumbers(value);
    compareLists(value);
    compareOutputFile(value);
    compareWithin<int>("int", value, limits);
    compareWithin<unsigned int>("unsigned int", value, limits);
    compareWithin<long long>("long long", value, limits);
    if (number_model::exactCLibrary) {
        compareRealNumbers(value);
        compareWithin<double>("double", value, limits);
    }
}

void compareAccepted(const Kelpkit::CommandLine& line, Kelp::OptionReader& bare, const model::Line& expected,
                     const Kelpkit::Limits<int>& limits) {
    model::Strings arguments;
    bare.getArguments(arguments, 1);
    expectSame("arguments", line.arguments(), arguments);
    expectSame("arguments of the model", line.arguments(), expected.arguments);
    for (const auto& [flag, longFlag] : {std::pair{"-l", "--loud"}, {"-q", "--quick"}}) {
        expectSame(flag, line.has(flag), bare.hasOption(flag, longFlag, 1) != 0);
        expectSame(flag, line.has(flag), expected.options.count(flag[1]) == 1);
    }
    for (const std::string flag : {"-n", "-t"}) {
        const auto found = expected.options.find(flag[1]);
        expectSame(flag.c_str(), line.has(flag), found != expected.options.end());
        if (found != expected.options.end()) {
            const std::string& token = found->second;
            compareValue({line, bare, flag, token, token.substr(token.find('=') + 1)}, limits);
        } else if (line.value<std::string>(flag)) {
            fuzz::fail(flag + " has a value");
        }
    }
}

}  // namespace

void fuzz::kit_line(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    // In this folder, short names are folders: ".", "tmp", "usr\\lib".
    fake_platform::state().directory = "/.";
    model::Counts counts{};
    counts.defined = static_cast<std::size_t>(input.smallNumber(0, 3));
    counts.optional = static_cast<std::size_t>(input.smallNumber(0, 4));
    counts.repeated = input.smallNumber(0, 1) == 1;
    const int lowest = input.smallNumber(INT_MIN, INT_MAX);
    const Kelpkit::Limits<int> limits{lowest, input.smallNumber(lowest, INT_MAX)};
    model::Strings tokens = input.cTexts();
    model::Line expected;
    const model::Reasons reasons = model::read(expected, tokens, counts);
    tokens.insert(tokens.begin(), "tool");
    Arguments argv(tokens);
    std::string refusal;
    try {
        const Kelpkit::CommandLine line(definitionFor(counts), argv.argc(), argv.argv());
        if (reasons.empty()) {
            Kelp::OptionReader bare(argv.argc(), argv.argv());
            compareAccepted(line, bare, expected, limits);
        }
    } catch (const Kelpkit::UsageError& error) {
        refusal = error.what();
    }
    if (refusal.empty() ? !reasons.empty() : std::find(reasons.begin(), reasons.end(), refusal) == reasons.end()) {
        fail("the kit's refusal is " + described(refusal) + "\ninstead of one of " + described(reasons));
    }
}
