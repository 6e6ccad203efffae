#include "report.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <iostream>
#include <string>

#include "../common/files.h"
#include "../common/interruption.h"
#include "../common/printable.h"

namespace histogram {

namespace {

/// Some consoles start a new line after the 80th character.
constexpr std::size_t lineWidth = 79;

std::vector<std::string> labelsOf(const std::vector<double>& edges) {
    std::vector<std::string> labels;
    for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
        labels.push_back(std::to_string(std::make_tuple(edges[i], edges[i + 1])));
    }
    return labels;
}

std::string rightAligned(const std::string& text, std::size_t width) {
    return std::string(width - text.size(), ' ') + text;
}

/// Returns the bar for a count. A "#" is one number if the highest count fits; otherwise the bars are scaled, and only a count
/// of 0 has no "#".
std::string bar(unsigned long long count, unsigned long long highest, std::size_t room) {
    std::string line;
    if (highest <= room) {
        line.assign(static_cast<std::size_t>(count), '#');
    } else if (count != 0) {
        const double share = static_cast<double>(count) / static_cast<double>(highest);
        line.assign(static_cast<std::size_t>(std::max(1L, std::lround(share * static_cast<double>(room)))), '#');
    }
    return line;
}

std::string plot(const std::vector<double>& edges, const Tally& tally) {
    const std::vector<std::string> labels = labelsOf(edges);
    const unsigned long long highest = *std::max_element(tally.bins.begin(), tally.bins.end());
    const std::size_t countWidth = std::to_string(highest).size();
    std::size_t labelWidth = 0;
    for (const std::string& label : labels) {
        labelWidth = std::max(labelWidth, label.size());
    }
    std::string lines;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        lines += rightAligned(labels[i], labelWidth) + " " + rightAligned(std::to_string(tally.bins[i]), countWidth);
        const std::string line = bar(tally.bins[i], highest, lineWidth - labelWidth - countWidth - 2);
        lines += (line.empty() ? "" : " ") + line + "\n";
    }
    return lines;
}

std::string summary(const Tally& tally) {
    return "counted: " + std::to_string(tally.inside) + ", below: " + std::to_string(tally.below) +
           ", above: " + std::to_string(tally.above) + ", NaN: " + std::to_string(tally.nan) +
           ", not numbers: " + std::to_string(tally.texts);
}

}  // namespace

void writeTable(common::NewFiles& files, const std::vector<double>& edges, const Tally& tally) {
    const std::vector<std::string> labels = labelsOf(edges);
    std::string table = "bin\tcount\n";
    for (std::size_t i = 0; i < labels.size(); ++i) {
        table += labels[i] + "\t" + std::to_string(tally.bins[i]) + "\n";
    }
    files.startNext();
    files.write(table.data(), table.size());
    files.publish();
}

void print(const Request& request, const std::vector<double>& edges, const Tally& tally) {
    errno = 0;
    std::cout << plot(edges, tally) << summary(tally);
    if (!request.output.empty()) {
        std::cout << ", table: " << common::printable(request.output);
    }
    if (!(std::cout << std::endl)) {
        common::checkInterruption();
        common::failOnStream("cannot write standard output");
    }
}

}  // namespace histogram
