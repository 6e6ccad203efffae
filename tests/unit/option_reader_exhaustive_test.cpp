#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include "arguments.h"
#include "option_reader_model.h"

/// Every command line of up to three tokens over a small set, compared with the reader's rules written down once more in
/// the plainest way.
namespace {

namespace model = option_reader_model;
using model::Found;
using model::Names;
using model::Strings;

const Strings vocabulary{"",       "-",   "--",    "---", "-o", "-O", "--o", "--out", "--OUT=a", "-o=",
                         "-o=a=b", "-ox", "-ox=1", "-v",  "-5", "a",  "/?",  "=",     "o",       "-="};

const Names namePairs[] = {{"-o", "--out"}, {"--OUT", "-O"}, {"-", "--"}, {"", "a"}, {"-=", "/?"}};

std::string described(const Strings& tokens, int start) {
    std::string text = "from " + std::to_string(start) + ":";
    for (const std::string& token : tokens) {
        text += " [" + token + "]";
    }
    return text;
}

void compareFlags(Kelp::OptionReader& reader, const Strings& tokens, int start) {
    for (const Names& names : namePairs) {
        const Found option{reader.hasOption(names.shortFlag, names.longFlag, start), ""};
        ASSERT_EQ(option, model::option(tokens, names, start))
            << described(tokens, start) << " for " << names.shortFlag;
        Found value{0, "before"};
        value.first = reader.getValue(names.shortFlag, names.longFlag, value.second, start);
        ASSERT_EQ(value, model::value(tokens, names, start)) << described(tokens, start) << " for " << names.shortFlag;
    }
}

void compareArguments(const Kelp::OptionReader& reader, const Strings& tokens, int start) {
    int position = 0;
    const Strings expected = model::arguments(tokens, start, position);
    Strings arguments;
    ASSERT_EQ(reader.getArguments(arguments, start), !expected.empty()) << described(tokens, start);
    ASSERT_EQ(arguments, expected) << described(tokens, start);
    std::string first = "before";
    ASSERT_EQ(reader.getFirstArgument(first, start), position) << described(tokens, start);
    ASSERT_EQ(first, expected.empty() ? "before" : expected.front()) << described(tokens, start);
}

void compareAll(const Strings& tokens) {
    Arguments line(tokens);
    Kelp::OptionReader reader(line.argc(), line.argv());
    for (const int start : {-1, 0, 1, 2, 3}) {
        ASSERT_NO_FATAL_FAILURE(compareFlags(reader, tokens, start));
        ASSERT_NO_FATAL_FAILURE(compareArguments(reader, tokens, start));
    }
}

TEST(OptionReaderExhaustive, AgreesWithTheRulesOnEveryShortCommandLine) {
    ASSERT_NO_FATAL_FAILURE(compareAll({}));
    for (const std::string& first : vocabulary) {
        ASSERT_NO_FATAL_FAILURE(compareAll({first}));
        for (const std::string& second : vocabulary) {
            ASSERT_NO_FATAL_FAILURE(compareAll({first, second}));
            for (const std::string& third : vocabulary) {
                ASSERT_NO_FATAL_FAILURE(compareAll({first, second, third}));
            }
        }
    }
}

}  // namespace
