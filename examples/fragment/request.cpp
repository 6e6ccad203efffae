#include "request.h"

#include <stdexcept>

#include "../common/files.h"
#include "../common/options.h"

namespace fragment {

namespace {

/// The largest size of a file.
constexpr unsigned long long maxBytes = 9223372036854775807ULL;

void checkCombination(const Request& request) {
    const bool pieces = request.pieces != 0;
    const bool pieceBytes = request.pieceBytes != 0;
    if (request.join && (pieces || pieceBytes)) {
        throw std::runtime_error(std::string(pieces ? "-n" : "-s") + " and -j cannot be combined");
    }
    if (request.join && request.output.empty()) {
        throw std::runtime_error("-j needs the name of the file to write, as in -o=FILE");
    }
    if (!request.join && pieces == pieceBytes) {
        throw std::runtime_error(pieces ? "-n and -s cannot be combined"
                                        : "one of -n=PIECES, -s=BYTES and -j is required");
    }
    if (!request.join && request.files.size() != 1) {
        throw std::runtime_error("only one file can be cut at a time, not " + std::to_string(request.files.size()));
    }
}

}  // namespace

std::vector<Kelp::Option> acceptedOptions() {
    return {
        {"-n", "--number", "cuts FILE into PIECES fragments of the same size, give or take a byte", common::takesValue},
        {"-s", "--size", "cuts FILE into fragments of BYTES bytes; the last one has the rest", common::takesValue},
        {"-o", "--output", "begins the names of the fragments (without it: FILE.part_); with -j, names the joined file",
         common::takesValue},
        {"-j", "--join", "joins fragments into one file, which -o names", common::isSwitch},
        {"-f", "--force", "overwrites existing files", common::isSwitch},
        {"-v", "--verbose", "names every fragment", common::isSwitch},
        {"-h", "--help", "shows this help", common::isSwitch},
    };
}

Request readRequest(Kelp::OptionReader& reader, CommandLineTool& tool) {
    common::checkFlags(reader, tool.getOptions());

    Request request;
    request.pieces = common::readCount(reader, "-n", "--number", maxFragments);
    request.pieceBytes = common::readCount(reader, "-s", "--size", maxBytes);
    request.output = common::readOutput(reader, tool);
    request.join = reader.hasOption("-j", "--join", common::firstToken) != 0;
    request.overwrite = reader.hasOption("-f", "--force", common::firstToken) != 0;
    reader.getArguments(request.files, common::firstToken);
    for (const std::string& file : request.files) {
        common::requireNoPattern(file);
    }
    checkCombination(request);
    return request;
}

}  // namespace fragment
