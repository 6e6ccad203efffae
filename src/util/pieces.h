#ifndef KELPLIB_UTIL_PIECES_H
#define KELPLIB_UTIL_PIECES_H

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace Kelp {

/// Calls `visit` with each non-empty piece of the text between delimiters, in order.
template <class Visit>
void forEachPiece(std::string_view text, char delimiter, Visit visit) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        if (text[begin] == delimiter) {
            ++begin;
            continue;
        }
        const std::size_t end = std::min(text.find(delimiter, begin), text.size());
        visit(text.substr(begin, end - begin));
        begin = end + 1;
    }
}

}  // namespace Kelp

#endif
