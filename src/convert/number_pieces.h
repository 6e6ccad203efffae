#ifndef KELPLIB_CONVERT_NUMBER_PIECES_H
#define KELPLIB_CONVERT_NUMBER_PIECES_H

#include <algorithm>
#include <string_view>

#include "convert/number_reading.h"

namespace Kelp {

/// The numbers of a list, one piece between separators after the other; empty pieces do not count. The list is gone through
/// once and never cut, which reads it as fast as its numbers can be read: the end of a number is nearly always that of its
/// piece, and under the classic locale no number reaches over a separator.
class NumberPieces {
public:
    /// \param between  the separator, ":" or ","; the text has to outlive this object
    NumberPieces(std::string_view text, char between)
        : position(text.data()), end(text.data() + text.size()), separator(between) {}

    /// Goes on to the next piece.
    /// \returns false when there is none
    bool next() {
        while (position != end && *position == separator) {
            ++position;
        }
        return position != end;
    }

    /// Reads the piece, once for every next(), into `target`, which keeps its value when the piece is blank.
    template <class T>
    void read(T& target) {
        const char* const begin = position;
        if (!reader.classic()) {
            position = pieceEnd();
            reader.read(target, {begin, static_cast<std::size_t>(position - begin)});
            return;
        }
        position = skipBlanks(begin, end);
        if (position != end && *position != separator) {
            readClassic(target, position, end);
        }
        position = pieceEnd();
    }

private:
    const char* pieceEnd() const {
        return position == end || *position == separator ? position : std::find(position, end, separator);
    }

    NumberReader reader;
    const char* position;
    const char* end;
    char separator;
};

}  // namespace Kelp

#endif
