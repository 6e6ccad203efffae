#ifndef KELPLIB_TESTS_PIECES_OF_H
#define KELPLIB_TESTS_PIECES_OF_H

#include <sstream>
#include <string>
#include <vector>

/// Returns the pieces that std::getline reads from a text, without the empty ones.
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

/// Returns the tokens of a text. Builds them letter by letter, and each delimiter ends a token.
inline std::vector<std::string> tokensOf(const std::string& text, const std::string& delimiters) {
    std::vector<std::string> tokens;
    std::string token;
    for (const char letter : text) {
        if (delimiters.find(letter) == std::string::npos) {
            token += letter;
        } else if (!token.empty()) {
            tokens.push_back(token);
            token.clear();
        }
    }
    if (!token.empty()) {
        tokens.push_back(token);
    }
    return tokens;
}

#endif
