#include "frame/token_mark.h"

#include <algorithm>

namespace Kelp {

char keyMark(const char* name) {
    if (name == nullptr || name[0] != '-') {
        return noMark;
    }
    return name[1] == '\0' || name[2] == '\0' ? foldAscii(name[1]) : noMark;
}

std::size_t findMark(const std::string& marks, char one, char other, std::size_t from) {
    if (one == other) {
        return marks.find(one, from);
    }
    const auto begin = marks.begin() + static_cast<std::ptrdiff_t>(std::min(from, marks.size()));
    const auto found = std::find_if(begin, marks.end(), [=](char mark) { return mark == one || mark == other; });
    return found == marks.end() ? std::string::npos : static_cast<std::size_t>(found - marks.begin());
}

}  // namespace Kelp
