#ifndef KELPLIB_TESTS_OPTION_READER_MODEL_H
#define KELPLIB_TESTS_OPTION_READER_MODEL_H

#include <string>
#include <utility>
#include <vector>

#include "plain_lower.h"

/// A plain model of the reader's queries.
namespace option_reader_model {

using Strings = std::vector<std::string>;

struct Names {
    std::string shortFlag;
    std::string longFlag;
};

/// A position and the text found there.
using Found = std::pair<int, std::string>;

inline Found option(const Strings& tokens, const Names& names, int start) {
    for (int i = 0; i < static_cast<int>(tokens.size()); ++i) {
        const std::string token = plainLower(tokens[static_cast<std::size_t>(i)]);
        if (start >= 0 && i >= start && (token == plainLower(names.shortFlag) || token == plainLower(names.longFlag))) {
            return {i, ""};
        }
    }
    return {0, ""};
}

inline Found value(const Strings& tokens, const Names& names, int start) {
    for (int i = 0; i < static_cast<int>(tokens.size()); ++i) {
        const std::string& token = tokens[static_cast<std::size_t>(i)];
        if (start < 0 || i < start || token.rfind('-', 0) != 0) {
            continue;
        }
        std::string key = token.size() < 2 ? token : token.substr(0, 2);
        if (key == "--") {
            key = token.size() == 2 ? "-" : std::string("-") + token[2];
        }
        if (plainLower(key) == plainLower(names.shortFlag) || plainLower(key) == plainLower(names.longFlag)) {
            const bool hasValue = token.find('=') != std::string::npos;
            return {i + 1, hasValue ? token.substr(token.find('=') + 1) : ""};
        }
    }
    return {0, "before"};
}

inline Strings arguments(const Strings& tokens, int start, int& firstPosition) {
    Strings found;
    firstPosition = 0;
    for (int i = 1; i < static_cast<int>(tokens.size()); ++i) {
        const std::string& token = tokens[static_cast<std::size_t>(i)];
        if (start >= 0 && i >= start && token.rfind('-', 0) != 0) {
            firstPosition = found.empty() ? i : firstPosition;
            found.push_back(token);
        }
    }
    return found;
}

}  // namespace option_reader_model

#endif
