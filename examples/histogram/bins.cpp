#include <kelplib/Kelp.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "histogram.h"

namespace histogram {

namespace {

/// Returns the number rounded to significant digits, so that an edge is 0.3 and not 0.30000000000000004.
double rounded(double number, int digits) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.*g", digits, number);
    return std::strtod(text.data(), nullptr);
}

}  // namespace

std::vector<double> equalEdges(double from, double to, int bins) {
    const std::string range = "the range " + std::to_string(std::make_tuple(from, to));
    const double width = (to - from) / bins;
    if (!std::isfinite(width)) {
        throw std::runtime_error(range + " is too wide");
    }
    // So many digits that rounding moves no edge by more than about a thousandth of a bin.
    const double digits = std::ceil(std::log10(std::max(std::abs(from), std::abs(to)) / width)) + 3;
    std::vector<double> edges{from};
    for (int i = 1; i < bins; ++i) {
        const double edge = from + width * i;
        const bool isZero = std::abs(edge) < width / 1000;
        edges.push_back(isZero ? 0.0 : rounded(edge, static_cast<int>(std::clamp(digits, 1.0, 17.0))));
    }
    edges.push_back(to);
    if (std::adjacent_find(edges.begin(), edges.end(), std::greater_equal<>()) != edges.end()) {
        throw std::runtime_error(range + " is too narrow for " + std::to_string(bins) + " bins");
    }
    return edges;
}

void Tally::add(std::optional<double> field) {
    if (!field) {
        ++texts;
    } else if (std::isnan(*field)) {
        ++nan;
    } else if (*field < edges.front()) {
        ++below;
    } else if (*field > edges.back()) {
        ++above;
    } else {
        const auto upper = std::upper_bound(edges.begin() + 1, edges.end() - 1, *field);
        ++bins[static_cast<std::size_t>(upper - edges.begin() - 1)];
        ++inside;
    }
}

}  // namespace histogram
