#include <kelpkit/CommandLine.h>

#include "ascii_case.h"

namespace Kelpkit {

namespace {

/// Returns the position of a name, ignoring letter case; the number of names if it is none of them.
std::size_t positionIn(const std::vector<std::string>& names, const std::string& text) {
    std::size_t position = 0;
    while (position < names.size() && !equalIgnoringCase(names[position], text)) {
        ++position;
    }
    return position;
}

/// Whether there are names, none empty and no two equal.
bool areDistinct(const std::vector<std::string>& names) {
    std::size_t count = 0;
    while (count < names.size() && !names[count].empty() && positionIn(names, names[count]) == count) {
        ++count;
    }
    return count > 0 && count == names.size();
}

/// Returns "one of fast, exact".
std::string oneOf(const std::vector<std::string>& names) {
    std::string text = (names.size() > 1 ? "one of " : "") + names.front();
    for (std::size_t i = 1; i < names.size(); ++i) {
        text += ", " + names[i];
    }
    return text;
}

}  // namespace

/// Returns the position of the given name; none if the option is not on the command line.
std::optional<std::size_t> CommandLine::choose(std::string_view flag, const std::vector<std::string>& names) const {
    const Given* const given = findValue(flag);
    if (!areDistinct(names)) {
        throw std::logic_error("the tool needs choices for " + std::string(flag) + ", none empty and no two equal");
    }
    if (given == nullptr) {
        return {};
    }
    const std::size_t position = positionIn(names, given->value);
    if (position == names.size()) {
        refuse(*given, "not " + oneOf(names));
    }
    return position;
}

}  // namespace Kelpkit
