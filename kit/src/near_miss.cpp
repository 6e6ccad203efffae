#include "near_miss.h"

#include <algorithm>
#include <numeric>
#include <string_view>

#include "ascii_case.h"

namespace Kelpkit {

namespace {

constexpr std::size_t far = 3;  ///< this many slips make another name

/// Returns the name without its dashes, in lower case.
std::string bareName(const std::string& form) {
    return lowerCase(std::string_view(form).substr(std::min(form.find_first_not_of('-'), form.size())));
}

/// One row of the table of distances between the beginnings of two names.
using Row = std::vector<std::size_t>;

/// Whether the characters before these positions are each other's neighbours swapped.
bool isSwap(const std::string& a, const std::string& b, std::size_t i, std::size_t j) {
    return i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
}

/// Returns how many slips make one name the other: a character more, less, another one, or two swapped. `far` for more than
/// names of this length allow.
std::size_t slips(const std::string& a, const std::string& b) {
    const std::size_t longer = std::max(a.size(), b.size());
    if (longer - std::min(a.size(), b.size()) >= far) {
        return far;
    }
    Row before;
    Row last(b.size() + 1);
    std::iota(last.begin(), last.end(), 0);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        Row row(b.size() + 1, i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
            if (isSwap(a, b, i, j)) {
                row[j] = std::min(row[j], before[j - 2] + 1);
            }
        }
        before = std::move(last);
        last = std::move(row);
    }
    // In a short name, two slips leave too little.
    return last.back() * far > longer ? far : last.back();
}

/// Returns how far a typed name is from a form's name; `far` if too far.
std::size_t distance(const std::string& typed, const std::string& name) {
    if (typed.empty()) {
        return far;
    }
    const bool isShortened = name.compare(0, typed.size(), typed) == 0;
    return isShortened ? std::min<std::size_t>(name.size() - typed.size(), 1) : slips(typed, name);
}

}  // namespace

std::string nearMiss(const std::string& flag, const std::vector<std::string>& forms) {
    const std::string typed = bareName(flag);
    std::string nearest;
    std::size_t least = far;
    for (const std::string& form : forms) {
        const std::size_t found = distance(typed, bareName(form));
        if (found < least) {
            nearest = form;
            least = found;
        } else if (found == least && bareName(form) != bareName(nearest)) {
            nearest.clear();
        }
    }
    return nearest;
}

}  // namespace Kelpkit
