// histogram: counts the numbers of a text file into bins, and draws them as bars.

#include <kelpkit/Tool.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iomanip>
#include <iostream>

#include "histogram.h"

namespace {

constexpr int maxBins = 1000;
constexpr int maxColumns = 1000000;

/// Some consoles start a new line after the 80th character.
constexpr int lineWidth = 79;

/// Returns the edges that the command line gives; none if they depend on the numbers in the file.
std::vector<double> requestedEdges(const Kelpkit::CommandLine& line, int bins) {
    const auto range = line.value<std::tuple<double, double>>("-r");
    const auto edges = line.value<std::vector<double>>("-e");
    if (edges && (line.has("-b") || range)) {
        line.refuse(range ? "-r" : "-b", "cannot be combined with -e");
    }
    if (edges && (edges->size() < 2 || edges->size() > maxBins + 1)) {
        line.refuse("-e", "a list of 2 to " + std::to_string(maxBins + 1) + " edges is required");
    }
    if (edges && std::adjacent_find(edges->begin(), edges->end(), std::greater_equal<>()) != edges->end()) {
        line.refuse("-e", "each edge has to be greater than the one before");
    }
    if (!range) {
        return edges.value_or(std::vector<double>());
    }
    if (std::get<0>(*range) == std::get<1>(*range)) {
        line.refuse("-r", "the range is empty");
    }
    try {
        return histogram::equalEdges(std::get<0>(*range), std::get<1>(*range), bins);
    } catch (const std::runtime_error& error) {
        line.refuse("-r", error.what());
    }
}

[[noreturn]] void failWithoutNumber(const Kelpkit::CommandLine& line) {
    throw std::runtime_error(line.arguments().front() + " contains no number" +
                             (line.has("-c") ? " in these columns" : ""));
}

/// Returns the edges of bins around all finite numbers of the file.
std::vector<double> edgesAround(const Kelpkit::CommandLine& line, const std::set<int>& columns, int bins,
                                Kelpkit::Progress& progress) {
    std::optional<double> lowest;
    std::optional<double> highest;
    histogram::forEachField(line.arguments().front(), columns, progress, [&](std::optional<double> field) {
        if (field && std::isfinite(*field)) {
            lowest = std::min(*field, lowest.value_or(*field));
            highest = std::max(*field, highest.value_or(*field));
        }
    });
    if (!lowest) {
        failWithoutNumber(line);
    }
    line.print("values: " + std::to_string(std::make_tuple(*lowest, *highest)));
    const double margin = *lowest < *highest ? 0.0 : std::max(0.5, std::abs(*lowest) / 1000);
    return histogram::equalEdges(*lowest - margin, *highest + margin, bins);
}

std::string label(const histogram::Tally& tally, std::size_t bin) {
    return std::to_string(std::make_tuple(tally.edges[bin], tally.edges[bin + 1]));
}

/// Prints a bar for each bin. A "#" is one number if the highest count fits; otherwise the bars are scaled, and only a count of
/// 0 has no "#".
void plot(const histogram::Tally& tally) {
    const auto highest = *std::max_element(tally.bins.begin(), tally.bins.end());
    const auto countWidth = static_cast<int>(std::to_string(highest).size());
    int labelWidth = 0;
    for (std::size_t i = 0; i < tally.bins.size(); ++i) {
        labelWidth = std::max(labelWidth, static_cast<int>(label(tally, i).size()));
    }
    const double room = lineWidth - labelWidth - countWidth - 2;
    const double scale = std::min(1.0, room / static_cast<double>(highest));
    for (std::size_t i = 0; i < tally.bins.size(); ++i) {
        const auto count = tally.bins[i];
        const auto length = std::max(1L, std::lround(static_cast<double>(count) * scale));
        std::cout << std::setw(labelWidth) << label(tally, i) << " " << std::setw(countWidth) << count
                  << (count == 0 ? "" : " " + std::string(static_cast<std::size_t>(length), '#')) << "\n";
    }
}

void writeTable(Kelpkit::NewFile& table, const histogram::Tally& tally) {
    table.stream() << "bin\tcount\n";
    for (std::size_t i = 0; i < tally.bins.size(); ++i) {
        table.stream() << label(tally, i) << "\t" << tally.bins[i] << "\n";
    }
    table.publish();
}

int makeHistogram(Kelpkit::CommandLine& line) {
    const std::string& file = line.arguments().front();
    const int bins = line.value<int>("-b", Kelpkit::between(1, maxBins)).value_or(10);
    std::vector<double> edges = requestedEdges(line, bins);
    const auto columns = line.value<std::set<int>>("-c", Kelpkit::between(1, maxColumns)).value_or(std::set<int>());
    const auto output = line.outputFile("-o");
    Kelpkit::requireNoPattern(file);
    Kelpkit::requireNoInput(output, {file});
    Kelpkit::noteInterruptions();
    Kelpkit::NewFile table(output, line.has("-f"), "-f overwrites it");
    Kelpkit::Progress progress((edges.empty() ? 2 : 1) * Kelpkit::sizeOf(file), "counting");
    if (edges.empty()) {
        edges = edgesAround(line, columns, bins, progress);
    }
    histogram::Tally tally(edges);
    histogram::forEachField(file, columns, progress, [&tally](std::optional<double> field) { tally.add(field); });
    if (tally.inside + tally.below + tally.above == 0) {
        failWithoutNumber(line);
    }
    progress.finish();
    if (table.isFile()) {
        writeTable(table, tally);
    }
    line.print("edges: " + std::to_string(edges));
    plot(tally);
    std::cout << "counted: " << tally.inside << ", below: " << tally.below << ", above: " << tally.above
              << ", NaN: " << tally.nan << ", not numbers: " << tally.texts
              << (output ? ", table: " + Kelpkit::printable(*output) : "") << "\n";
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{
        "histogram",
        "Counts the numbers of a text file into bins.",
        {{"-r", "--range", "the range of the bins, FROM:TO (default: from the lowest to the highest number)",
          Kelpkit::takesValue},
         {"-b", "--bins", "divides the range into COUNT bins of the same width (default: 10)", Kelpkit::takesValue},
         {"-e", "--edges", "the edges of the bins, instead of -r and -b, as in 0:1:2.5:10", Kelpkit::takesValue},
         {"-c", "--columns",
          "counts only these columns, as in 1,3 (default: all); blanks, commas and semicolons separate columns",
          Kelpkit::takesValue},
         {"-o", "--output", "writes a table of the bins to TABLE", Kelpkit::takesValue},
         {"-f", "--force", "overwrites TABLE", Kelpkit::isSwitch},
         {"-v", "--verbose", "prints the lowest and the highest number and the edges of the bins", Kelpkit::isSwitch},
         {"-h", "--help", "shows this help", Kelpkit::isSwitch}},
        {{"FILE", "the text file with the numbers", false}},
        "-c=2 -r=0:100 -b=20 measured.csv",
        "[-r=FROM:TO] [-b=COUNT] [-c=COLUMNS] [-o=TABLE [-f]] [-v] FILE  or  -e=EDGES ... FILE",
        "     Bars of numbers"};
    return Kelpkit::run(tool, argc, argv, makeHistogram);
}
