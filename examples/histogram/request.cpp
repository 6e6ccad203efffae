#include "request.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>

#include "../common/files.h"
#include "../common/numbers.h"
#include "../common/options.h"

namespace histogram {

namespace {

constexpr unsigned long long maxBins = 1000;
constexpr int maxColumns = 1000000;

/// Splits a text and keeps the empty pieces. The library drops them: it reads "0::1" like "0:1".
std::vector<std::string> allPieces(const std::string& text, char separator) {
    std::vector<std::string> pieces(1);
    for (const char character : text) {
        if (character == separator) {
            pieces.emplace_back();
        } else {
            pieces.back() += character;
        }
    }
    return pieces;
}

bool isFinite(const std::string& piece) {
    const std::optional<double> number = common::decimalNumber(piece);
    return number && std::isfinite(*number);
}

bool isColumn(const std::string& piece) {
    int column = 0;
    Kelp::stringToValue(column, piece);
    return common::isDigits(piece) && column >= 1 && column <= maxColumns;
}

[[noreturn]] void refusePiece(const std::string& given, const std::string& piece, char separator) {
    const std::string problem = separator == ',' ? "\" is not a column number" : "\" is not a number";
    throw std::runtime_error(given + ": \"" + piece + problem);
}

/// Reads the value of a flag as a list. The conversions of the library report no errors, so this checks each piece first.
/// \returns the flag with its value; empty if the flag is not given
template <class List>
std::string readList(Kelp::OptionReader& reader, const std::string& flag, const std::string& longFlag, char separator,
                     const std::function<bool(const std::string&)>& isValid, List& list) {
    std::string text;
    if (reader.getValue(flag, longFlag, text, common::firstToken) == 0) {
        return {};
    }
    std::string given = flag + "=" + text;
    for (const std::string& piece : allPieces(text, separator)) {
        if (!isValid(piece)) {
            refusePiece(given, piece, separator);
        }
    }
    reader.getValue(flag, longFlag, list, common::firstToken);
    return given;
}

void readRange(Kelp::OptionReader& reader, Request& request) {
    std::tuple<double, double> range;
    const std::string given = readList(reader, "-r", "--range", ':', isFinite, range);
    if (given.empty()) {
        return;
    }
    const std::vector<std::string> ends = allPieces(given.substr(given.find('=') + 1), ':');
    if (ends.size() != 2) {
        throw std::runtime_error(given + ": not two numbers as in -r=0.5:12");
    }
    if (std::get<0>(range) == std::get<1>(range)) {
        throw std::runtime_error(given + ": the range is empty");
    }
    // The library has sorted the two numbers, so this compares the texts.
    if (common::decimalNumber(ends[0]) > common::decimalNumber(ends[1])) {
        throw std::runtime_error(given + ": the range ends before it begins");
    }
    request.range = range;
}

void readEdges(Kelp::OptionReader& reader, Request& request) {
    const std::string given = readList(reader, "-e", "--edges", ':', isFinite, request.edges);
    if (given.empty()) {
        return;
    }
    if (request.edges.size() < 2 || request.edges.size() > maxBins + 1) {
        throw std::runtime_error(given + ": a list of 2 to " + std::to_string(maxBins + 1) + " edges is required");
    }
    if (std::adjacent_find(request.edges.begin(), request.edges.end(), std::greater_equal<>()) != request.edges.end()) {
        throw std::runtime_error(given + ": each edge has to be greater than the one before");
    }
}

void readFile(Kelp::OptionReader& reader, Request& request) {
    std::vector<std::string> files;
    reader.getArguments(files, common::firstToken);
    if (files.size() != 1) {
        throw std::runtime_error("only one file can be counted at a time, not " + std::to_string(files.size()));
    }
    request.file = files.front();
    common::requireNoPattern(request.file);
}

}  // namespace

std::vector<Kelp::Option> acceptedOptions() {
    return {
        {"-r", "--range", "the range of the bins, FROM:TO (default: from the lowest to the highest number)",
         common::takesValue},
        {"-b", "--bins", "divides the range into COUNT bins of the same width (default: 10)", common::takesValue},
        {"-e", "--edges", "the edges of the bins, instead of -r and -b, as in 0:1:2.5:10", common::takesValue},
        {"-c", "--columns",
         "counts only these columns, as in 1,3 (default: all); blanks, commas and semicolons separate columns",
         common::takesValue},
        {"-o", "--output", "writes a table of the bins to TABLE", common::takesValue},
        {"-f", "--force", "overwrites TABLE", common::isSwitch},
        {"-v", "--verbose", "prints the lowest and the highest number and the edges of the bins", common::isSwitch},
        {"-h", "--help", "shows this help", common::isSwitch},
    };
}

Request readRequest(Kelp::OptionReader& reader, CommandLineTool& tool) {
    common::checkFlags(reader, tool.getOptions());

    Request request;
    readRange(reader, request);
    readEdges(reader, request);
    readList(reader, "-c", "--columns", ',', isColumn, request.columns);
    const unsigned long long bins = common::readCount(reader, "-b", "--bins", maxBins);
    if (!request.edges.empty() && (bins != 0 || request.range)) {
        throw std::runtime_error(std::string(bins != 0 ? "-b" : "-r") + " and -e cannot be combined");
    }
    if (bins != 0) {
        request.bins = static_cast<int>(bins);
    }
    request.output = common::readOutput(reader, tool);
    request.overwrite = reader.hasOption("-f", "--force", common::firstToken) != 0;
    readFile(reader, request);
    return request;
}

}  // namespace histogram
