#ifndef SLICE_LINES_H
#define SLICE_LINES_H

#include <cstddef>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace slice {

/// A line, or a part of a line that is longer than the buffer.
struct Piece {
    std::string_view text;  ///< without the line end; valid until the next piece
    bool first = true;      ///< whether the line begins here
    bool last = true;       ///< whether the line ends here
};

/// Reads a file line by line. Lines may have any length.
class Lines {
public:
    /// \param mode  std::ios::binary keeps the line ends as they are on every system
    Lines(std::string name, std::ios::openmode mode);

    /// Sets `piece` to the next piece.
    /// \returns false at the end of the file
    bool next(Piece& piece);

private:
    std::string name;
    std::ifstream stream;
    std::vector<char> buffer;
    bool insideLine = false;
};

}  // namespace slice

#endif
