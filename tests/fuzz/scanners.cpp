// Scans a command line without a tool object. Input lines: the start, the flag, then the tokens.
#include "scanner_answers.h"

#include "check.h"
#include "input.h"
#include "target.h"

namespace {

using fuzz::expectSame;
namespace model = flag_scanner_model;

void compareFlag(const model::Line& line, Arguments& actual, const std::string& flag, int start) {
    expectSame("getNextFlag", Kelp::getNextFlag(actual.argc(), actual.argv(), flag, start),
               model::nextFlag(line, flag, start));
    expectSame("getIntFlag", scanner_answers::integer(actual, flag, start), model::intFlag(line, flag, start));
    int position = 0;
    std::string value = "before";
    expectSame("getStringFlag", scanner_answers::string(actual, flag, start),
               model::stringFlag(line, flag, start, position, value));
    expectSame("getMultiStringFlag", scanner_answers::strings(actual, flag), model::multiStringFlag(line, flag));
}

void compareLine(const model::Line& line, Arguments& actual) {
    expectSame("getTimeRangeFlag", scanner_answers::range(actual, Kelp::getTimeRangeFlag),
               model::rangeFlag(line, "-tr", "--timerange", false));
    expectSame("getStepRangeFlag", scanner_answers::range(actual, Kelp::getStepRangeFlag),
               model::rangeFlag(line, "-sr", "--steprange", true));
    expectSame("getHelpFlag", Kelp::getHelpFlag(actual.argc(), actual.argv()),
               model::nextFlag(line, "-h", 0) != 0 || model::nextFlag(line, "--help", 0) != 0);
    expectSame("arguments", scanner_answers::positional(actual), model::positional(line));
}

}  // namespace

void fuzz::scanners(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const int start = input.smallNumber(-2, 9);
    const std::string flag = input.line();
    const std::vector<std::string> texts = input.cTexts();
    std::vector<model::Token> tokens;
    tokens.reserve(texts.size());
    for (const std::string& text : texts) {
        tokens.push_back({text, piecesOf(text, '=')});
    }
    model::Line line;
    line.reserve(tokens.size());
    for (const model::Token& token : tokens) {
        line.push_back(&token);
    }
    Arguments actual(texts);
    compareFlag(line, actual, flag, start);
    compareLine(line, actual);
}
