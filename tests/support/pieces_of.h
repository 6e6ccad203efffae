#ifndef KELPLIB_TESTS_PIECES_OF_H
#define KELPLIB_TESTS_PIECES_OF_H

#include <sstream>
#include <string>
#include <vector>

/// The pieces of a text between delimiters, read as lines are, without the empty ones.
inline std::vector<std::string> piecesOf(const std::string& text, char delimiter) {
    std::vector<std::string> pieces;
    std::istringstream stream(text);
    for (std::string piece; std::getline(stream, piece, delimiter);) {
        if (!piece.empty()) {
            pieces.push_back(piece);
        }
    }
    return pieces;
}

#endif
