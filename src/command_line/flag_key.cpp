#include "command_line/flag_key.h"

#include <algorithm>

namespace Kelp {

std::string flagKey(std::string_view flag) {
    std::string key(flag.substr(0, 2));
    if (key.size() > 1) {
        key[1] = keyLetter(flag.data());
    }
    return key;
}

char keyMark(const char* name) {
    if (name == nullptr || name[0] != '-') {
        return noMark;
    }
    return name[1] == '\0' || name[2] == '\0' ? foldAscii(name[1]) : noMark;
}

std::size_t findMark(const std::string& marks, char mark, char otherMark, std::size_t from) {
    if (mark == otherMark) {
        return marks.find(mark, from);
    }
    const auto begin = marks.begin() + static_cast<std::ptrdiff_t>(std::min(from, marks.size()));
    const auto found = std::find_if(begin, marks.end(), [=](char each) { return each == mark || each == otherMark; });
    return found == marks.end() ? std::string::npos : static_cast<std::size_t>(found - marks.begin());
}

}  // namespace Kelp
