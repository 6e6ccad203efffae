// fragment: cuts a file into numbered fragments and joins them again.

#include <kelplib/CommandLineTool.h>

#include <cstdlib>
#include <iostream>
#include <stdexcept>

#include "../common/interruption.h"
#include "../common/run.h"
#include "cut.h"
#include "join.h"
#include "request.h"

namespace {

int work(int argc, char** argv) {
    std::vector<Kelp::Option> options = fragment::acceptedOptions();
    std::vector<Kelp::Argument> arguments{
        {"FILE", "the file to cut", false},
        {"FRAGMENT", "a fragment to join; one alone stands for itself and all that follow it", true},
    };
    // The constructor ends the program after a help screen, an unknown flag or a missing file.
    CommandLineTool tool(argc, argv, "Cuts a file into numbered fragments and joins them again.",
                         "(-n=PIECES | -s=BYTES) [-o=BASE] [-f] [-v] FILE  or  -j -o=FILE [-f] [-v] FRAGMENT...",
                         "-n=4 film.mp4  (and back: -j -o=film.mp4 film.mp4.part_0)",
                         "     Numbered fragments of large files", options, arguments);

    common::noteInterruptions();
    Kelp::OptionReader reader(argc, argv);
    const fragment::Request request = fragment::readRequest(reader, tool);
    if (request.join) {
        fragment::join(request, tool);
    } else {
        fragment::cut(request, tool);
    }
    if (!std::cout.flush()) {
        throw std::runtime_error("all files are written, but the summary cannot be printed");
    }
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    return common::runTool("fragment", work, argc, argv);
}
