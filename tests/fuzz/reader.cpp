// Queries a command line. Input lines: the start, the short and the long name, then the tokens.
#include <kelplib/Kelp.h>

#include <cstdio>

#include "arguments.h"
#include "captured_output.h"
#include "check.h"
#include "input.h"
#include "option_reader_model.h"
#include "target.h"

namespace {

using fuzz::expectSame;
namespace model = option_reader_model;

void compareFlags(Kelp::OptionReader& reader, const model::Strings& tokens, const model::Names& names, int start) {
    expectSame("hasOption", reader.hasOption(names.shortFlag, names.longFlag, start),
               model::option(tokens, names, start).first);
    expectSame("hasOption of an option",
               reader.hasOption(Kelp::Option(names.shortFlag, names.longFlag, "", false), start),
               model::option(tokens, names, start).first);
    const auto [position, text] = model::value(tokens, names, start);
    std::string value = "before";
    expectSame("getValue", reader.getValue(names.shortFlag, names.longFlag, value, start), position);
    expectSame("value", value, text);
    double number = 0.5;
    double expectedNumber = 0.5;
    if (position != 0) {
        Kelp::stringToValue(expectedNumber, text);
    }
    expectSame("getValue of double", reader.getValue(names.shortFlag, names.longFlag, number, start), position);
    expectSame("number", number, expectedNumber);
}

void compareArguments(const Kelp::OptionReader& reader, const model::Strings& tokens, int start) {
    int position = 0;
    const model::Strings expected = model::arguments(tokens, start, position);
    model::Strings arguments{"kept"};
    expectSame("getArguments", reader.getArguments(arguments, start), !expected.empty());
    model::Strings all{"kept"};
    all.insert(all.end(), expected.begin(), expected.end());
    expectSame("arguments", arguments, all);
    std::string first = "before";
    expectSame("getFirstArgument", reader.getFirstArgument(first, start), position);
    expectSame("first argument", first, expected.empty() ? "before" : expected.front());
}

bool opens(const std::string& name) {
    std::FILE* const file = std::fopen(name.c_str(), "r");
    return file != nullptr && std::fclose(file) == 0;
}

/// Checks only names in the current folder, because opening other files might block or have side effects.
void compareFileCheck(Kelp::OptionReader& reader, const model::Strings& tokens, int start) {
    int position = 0;
    const model::Strings arguments = model::arguments(tokens, start, position);
    const std::string name = arguments.empty() ? "before" : arguments.front();
    if (name.find_first_of("/\\:") != std::string::npos) {
        return;
    }
    std::string printed;
    if (arguments.empty()) {
        printed = "\n\x1b[31mFile missing, please insert the name of the file.\x1b[0m\n\n";
    } else if (name != "." && name.find('*') == std::string::npos && !opens(name)) {
        printed = "File " + name + " doesn't exist. Please insert a valid file name.\n";
    }
    std::string file = "before";
    const CapturedOutput output;
    expectSame("checkFiles", reader.checkFiles(file, start), printed.empty());
    expectSame("file", file, name);
    expectSame("output", output.text(), printed);
}

}  // namespace

void fuzz::reader(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const int start = input.smallNumber(-2, 9);
    const model::Names names{input.cText(), input.cText()};
    const model::Strings tokens = input.cTexts();
    Arguments line(tokens);
    Kelp::OptionReader reader(line.argc(), line.argv());
    compareFlags(reader, tokens, names, start);
    compareArguments(reader, tokens, start);
    compareFileCheck(reader, tokens, start);
    model::Strings all{"before"};
    reader.getOptions(all);
    expectSame("getOptions", all, tokens);
    expectSame("getNameTool", reader.getNameTool(), tokens.empty() ? "" : tokens.front());
}
