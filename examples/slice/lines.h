#ifndef SLICE_LINES_H
#define SLICE_LINES_H

#include <cstddef>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace slice {

/// A line, or a part of one that is longer than what is held in memory.
struct Piece {
    std::string_view text;  ///< without a line end; valid until the next piece
    bool first = true;      ///< the line begins here
    bool last = true;       ///< the line ends here
};

/// The lines of a file, one after the other, however long they are.
class Lines {
public:
    /// \param mode  std::ios::binary leaves the line ends as they are on every system
    Lines(std::string name, std::ios::openmode mode);

    /// Sets `piece` to the next one.
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
