#include "bins.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>

namespace histogram {

namespace {

constexpr int digitsOfDouble = 17;

/// Returns the number rounded to significant digits, so that an edge is 0.3 and not 0.30000000000000004.
double rounded(double number, int digits) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.*g", digits, number);
    return std::strtod(text.data(), nullptr);
}

/// Returns a number of digits with which rounding moves no edge by more than about a thousandth of a bin.
int digitsFor(double from, double to, double width) {
    const double digits = std::ceil(std::log10(std::max(std::abs(from), std::abs(to)) / width)) + 3;
    return static_cast<int>(std::clamp(digits, 1.0, static_cast<double>(digitsOfDouble)));
}

std::vector<double> equalEdges(double from, double to, int bins) {
    const double width = (to - from) / bins;
    if (!std::isfinite(width)) {
        throw std::runtime_error("the range " + std::to_string(std::make_tuple(from, to)) + " is too wide");
    }
    const int digits = digitsFor(from, to, width);
    std::vector<double> edges{from};
    for (int i = 1; i < bins; ++i) {
        const double edge = from + width * i;
        edges.push_back(std::abs(edge) < width / 1000 ? 0.0 : rounded(edge, digits));
    }
    edges.push_back(to);
    if (std::adjacent_find(edges.begin(), edges.end(), std::greater_equal<>()) != edges.end()) {
        throw std::runtime_error("the range " + std::to_string(std::make_tuple(from, to)) + " is too narrow for " +
                                 std::to_string(bins) + " bins");
    }
    return edges;
}

}  // namespace

std::vector<double> requestedEdges(const Request& request) {
    if (request.range) {
        return equalEdges(std::get<0>(*request.range), std::get<1>(*request.range), request.bins);
    }
    return request.edges;
}

std::vector<double> edgesAround(double lowest, double highest, int bins) {
    if (lowest == highest) {
        const double margin = std::max(0.5, std::abs(lowest) / 1000);
        return equalEdges(lowest - margin, highest + margin, bins);
    }
    return equalEdges(lowest, highest, bins);
}

std::size_t binOf(double number, const std::vector<double>& edges) {
    const auto above = std::upper_bound(edges.begin(), edges.end() - 1, number);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(above - edges.begin() - 1, 0));
}

}  // namespace histogram
