#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include "scanner_answers.h"

/// Every command line of up to three tokens over a small set, compared with the scanners' rules. Verbosity is at most 10.
namespace {

namespace model = flag_scanner_model;
using model::joined;
using model::Strings;

const Strings vocabulary{"",
                         "-",
                         "--",
                         "=",
                         "tool=3",
                         "-n",
                         "-N=4",
                         "-n=5=6",
                         "=-n=7x",
                         "-n12",
                         "n",
                         "n=8",
                         "--num",
                         "--num=9",
                         "--NUM=9",
                         "-tr=1:2",
                         "-tr=3:",
                         "-TR=1:2",
                         "--timerange=0.5:1e1",
                         "--timerange=1:2:3",
                         "-sr=2:1",
                         "--steprange=:7:8",
                         "-Hist",
                         "--help=x",
                         "--HELP",
                         "file"};

void compareFlag(const model::Line& line, Arguments& actual, const char* flag) {
    for (const int start : {-1, 0, 1, 2, 3}) {
        SCOPED_TRACE(start);
        ASSERT_EQ(Kelp::getNextFlag(actual.argc(), actual.argv(), flag, start), model::nextFlag(line, flag, start));
        ASSERT_EQ(scanner_answers::integer(actual, flag, start), model::intFlag(line, flag, start));
        int position = 0;
        std::string value = "before";
        ASSERT_EQ(scanner_answers::string(actual, flag, start), model::stringFlag(line, flag, start, position, value));
    }
    ASSERT_EQ(scanner_answers::strings(actual, flag), model::multiStringFlag(line, flag));
}

void compareAll(const model::Line& line) {
    Strings texts;
    for (const model::Token* const token : line) {
        texts.push_back(token->text);
    }
    SCOPED_TRACE(joined(texts));
    Arguments actual(texts);
    for (const char* const flag : {"-N", "--num", "n"}) {
        SCOPED_TRACE(flag);
        ASSERT_NO_FATAL_FAILURE(compareFlag(line, actual, flag));
    }
    ASSERT_EQ(scanner_answers::range(actual, Kelp::getTimeRangeFlag),
              model::rangeFlag(line, "-tr", "--timerange", false));
    ASSERT_EQ(scanner_answers::range(actual, Kelp::getStepRangeFlag),
              model::rangeFlag(line, "-sr", "--steprange", true));
    ASSERT_EQ(Kelp::getHelpFlag(actual.argc(), actual.argv()),
              model::nextFlag(line, "-h", 0) != 0 || model::nextFlag(line, "--help", 0) != 0);
    ASSERT_EQ(scanner_answers::positional(actual), model::positional(line));
}

TEST(FlagScannersExhaustive, AgreeWithTheRulesOnEveryShortCommandLine) {
    ASSERT_LE(Kelp::verbosity(), 10) << "K_VERBOSITY is set";
    std::vector<model::Token> tokens;
    for (const std::string& text : vocabulary) {
        tokens.push_back({text, piecesOf(text, '=')});
    }
    ASSERT_NO_FATAL_FAILURE(compareAll({}));
    for (const model::Token& first : tokens) {
        ASSERT_NO_FATAL_FAILURE(compareAll({&first}));
        for (const model::Token& second : tokens) {
            ASSERT_NO_FATAL_FAILURE(compareAll({&first, &second}));
            for (const model::Token& third : tokens) {
                ASSERT_NO_FATAL_FAILURE(compareAll({&first, &second, &third}));
            }
        }
    }
}

}  // namespace
