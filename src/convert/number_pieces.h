#ifndef KELPLIB_CONVERT_NUMBER_PIECES_H
#define KELPLIB_CONVERT_NUMBER_PIECES_H

#include <algorithm>
#include <string_view>

#include "convert/number_reading.h"

namespace Kelp {

/// Walks a list of numbers piece by piece, in one pass and without copying it. Empty pieces are skipped.
///
/// A number nearly always ends where its piece does, and with the classic locale no number extends past a separator, so a
/// list is read as fast as its numbers.
class NumberPieces {
public:
    /// \param text       must outlive this object
    /// \param separator  ":" or ","
    NumberPieces(std::string_view text, char separator)
        : position(text.data()), end(text.data() + text.size()), separator(separator) {}

    /// Moves to the next piece.
    /// \returns false at the end of the list
    bool next() {
        while (position != end && *position == separator) {
            ++position;
        }
        return position != end;
    }

    /// Reads the number of the piece, once after every next(). Leaves `target` unchanged if the piece is blank.
    template <class T>
    void read(T& target) {
        const char* const begin = position;
        if (!reader.classic()) {
            position = pieceEnd();
            reader.read(target, {begin, static_cast<std::size_t>(position - begin)});
            return;
        }
        skipBlanks(position, end);
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
