// slice: writes the lines of logs and tables whose times or line numbers are in a range.
//
// It reads its command line only with the scanners for raw flags, without a CommandLineTool.

#include <kelplib/Kelp.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "../common/files.h"
#include "../common/interruption.h"
#include "../common/printable.h"
#include "../common/run.h"
#include "help.h"
#include "output.h"
#include "request.h"
#include "selection.h"

namespace {

/// The exit status if there is no error, but no line is in the range.
constexpr int nothingFound = 2;

int run(const slice::Request& request) {
    if (!request.output.empty() && common::arePlainFiles(request.inputs)) {
        // Otherwise signals keep their default effect: without an output file there is nothing to clean up, and while a
        // terminal or a pipe has no input, the tool could not act on a noted signal.
        common::noteInterruptions();
    }
    if (!request.output.empty()) {
        common::requireNoInput(request.output, request.inputs);
    }
    slice::Output output(request.output, request.overwrite);
    const slice::Found found = slice::selectLines(request, output);
    if (found.written == 0) {
        std::cerr << "slice: " << slice::reasonForNothing(request, found) << std::endl;
        return nothingFound;
    }
    output.finish();
    if (!request.output.empty() &&
        !(std::cout << "lines: " << found.written << ", output: " << common::printable(request.output) << std::endl)) {
        common::failOnStream("the output file is written, but the summary cannot be printed");
    }
    return EXIT_SUCCESS;
}

int work(int argc, char** argv) {
    // The scanners search the program path too, and a match there would hide later ones.
    std::string name = "slice";
    std::vector<char*> line{name.data()};
    line.insert(line.end(), argv + std::min(argc, 1), argv + argc);
    const int count = static_cast<int>(line.size());

    slice::checkFlags(count, line.data());
    if (Kelp::getHelpFlag(count, line.data())) {
        slice::printHelp();
        return EXIT_SUCCESS;
    }
    return run(slice::readRequest(count, line.data()));
}

}  // namespace

int main(int argc, char** argv) {
    return common::runTool("slice", work, argc, argv);
}
