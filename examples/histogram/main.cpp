// histogram: counts the numbers of a text file into bins, and draws them as bars.

#include <kelplib/CommandLineTool.h>

#include <cstdlib>
#include <vector>

#include "../common/files.h"
#include "../common/interruption.h"
#include "../common/new_files.h"
#include "../common/progress.h"
#include "../common/run.h"
#include "bins.h"
#include "count.h"
#include "report.h"
#include "request.h"

namespace {

void makeHistogram(const histogram::Request& request, CommandLineTool& tool) {
    // NewFiles refuses a table that cannot be written. It has to do so before the counting.
    const bool hasTable = !request.output.empty();
    if (hasTable) {
        common::requireNoInput(request.output, {request.file});
    }
    common::NewFiles files(hasTable ? std::vector{request.output} : std::vector<std::string>{}, request.overwrite);
    std::vector<double> edges = histogram::requestedEdges(request);
    const std::uintmax_t passes = edges.empty() ? 2 : 1;
    common::Progress progress(tool, "counting ", passes * common::sizeOf(request.file));
    if (edges.empty()) {
        const histogram::Extent extent = histogram::findExtent(request, progress);
        tool.print("values: " + std::to_string(std::make_tuple(extent.lowest, extent.highest)));
        edges = histogram::edgesAround(extent.lowest, extent.highest, request.bins);
    }
    tool.print("edges: " + std::to_string(edges));
    const histogram::Tally tally = histogram::count(request, edges, progress);
    progress.finish();
    if (hasTable) {
        histogram::writeTable(files, edges, tally);
    }
    histogram::print(request, edges, tally);
}

int work(int argc, char** argv) {
    std::vector<Kelp::Option> options = histogram::acceptedOptions();
    std::vector<Kelp::Argument> arguments{{"FILE", "the text file with the numbers", false}};
    // The constructor ends the program after a help screen, an unknown flag or a missing file.
    CommandLineTool tool(argc, argv, "Counts the numbers of a text file into bins.",
                         "[-r=FROM:TO] [-b=COUNT] [-c=COLUMNS] [-o=TABLE [-f]] [-v] FILE  or  -e=EDGES ... FILE",
                         "-c=2 -r=0:100 -b=20 measured.csv", "     Bars of numbers", options, arguments);

    common::noteInterruptions();
    Kelp::OptionReader reader(argc, argv);
    makeHistogram(histogram::readRequest(reader, tool), tool);
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    return common::runTool("histogram", work, argc, argv);
}
