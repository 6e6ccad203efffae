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
    /// \param reader     must outlive this object. It is not a member: with the address of a member, the position would
    ///                   lie in memory and not in a register
    /// \param text       must outlive this object
    /// \param separator  ":" or ","
    NumberPieces(const NumberReader& reader, std::string_view text, char separator)
        : reader(reader), position(text.data()), end(text.data() + text.size()), separator(separator) {}

    /// Moves to the next piece.
    /// \returns false at the end of the list
    bool next() {
        while (position != end && *position == separator) {
            ++position;
        }
        return position != end;
    }

    /// Returns the number of bytes from the piece to the end of the list.
    std::size_t unread() const {
        return static_cast<std::size_t>(end - position);
    }

    /// Reads the number of the piece, once after every next(). Leaves `target` unchanged if the piece is blank.
    template <class T>
    void read(T& target) {
        const char* at = position;
        if (!reader.classic()) {
            position = pieceEnd(at);
            reader.read(target, {at, static_cast<std::size_t>(position - at)});
            return;
        }
        skipBlanks(at, end);
        if (at != end && *at != separator) {
            readClassic(target, at, end);
        }
        position = pieceEnd(at);
    }

private:
    /// Returns the end of the piece that contains or ends at `at`.
    const char* pieceEnd(const char* at) const {
        if (at == end || *at == separator) {
            return at;
        }
        const std::string_view rest(at, static_cast<std::size_t>(end - at));
        return at + std::min(rest.find(separator), rest.size());
    }

    const NumberReader& reader;
    const char* position;
    const char* end;
    char separator;
};

}  // namespace Kelp

#endif
