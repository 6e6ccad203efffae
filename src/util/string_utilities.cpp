#include <kelplib/Kelp.h>

#include <cctype>
#include <cmath>

#include "util/pieces.h"

namespace Kelp {

std::vector<std::string> split(const std::string& text, char delimiter) {
    std::vector<std::string> pieces;
    forEachPiece(text, delimiter, [&pieces](std::string_view piece) { pieces.emplace_back(piece); });
    return pieces;
}

std::vector<std::string> Tokenize(const std::string& text, const std::string& delimiters) {
    std::vector<std::string> tokens;
    std::size_t begin = text.find_first_not_of(delimiters);
    while (begin != std::string::npos) {
        const std::size_t end = text.find_first_of(delimiters, begin);
        tokens.emplace_back(text, begin, end - begin);
        begin = text.find_first_not_of(delimiters, end);
    }
    return tokens;
}

std::string getFirstToken(std::string text, char delimiter) {
    const std::size_t begin = std::min(text.find_first_not_of(delimiter), text.size());
    const std::size_t end = std::min(text.find(delimiter, begin), text.size());
    return text.substr(begin, end - begin);
}

std::string toLower(std::string text) {
    for (char& character : text) {
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }
    return text;
}

std::string replaceToFileExtension(std::string name, std::string extension) {
    std::vector<std::string> parts = split(name, '.');
    if (parts.empty()) {
        return extension;
    }
    parts.back() = extension;
    std::string result = parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i) {
        result += '.';
        result += parts[i];
    }
    return result;
}

std::string replaceToQ6Extension(std::string name) {
    return replaceToFileExtension(name, "q6");
}

std::string createFragmentName(unsigned long long index, std::string base, unsigned int width) {
    const unsigned int exponent =
        index == 0 ? 0U : static_cast<unsigned int>(std::floor(std::log10(static_cast<double>(index))));
    if (width > exponent) {
        base.append(width - exponent, '0');
    }
    base += std::to_string(index);
    return base;
}

}  // namespace Kelp
