#ifndef KELPLIB_TESTS_FLAG_SCANNER_MODEL_H
#define KELPLIB_TESTS_FLAG_SCANNER_MODEL_H

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include "pieces_of.h"
#include "plain_lower.h"

/// A plain model of the scanners of argv. Each function returns one text: the result, the value and the printed text.
namespace flag_scanner_model {

using Strings = std::vector<std::string>;

/// A token and its non-empty parts between equals signs.
struct Token {
    std::string text;
    Strings parts;
};
using Line = std::vector<const Token*>;

inline bool isFlag(const Token& token) {
    return token.text.rfind('-', 0) == 0;
}

inline int nextFlag(const Line& line, const std::string& flag, int start) {
    for (int i = 0; i < static_cast<int>(line.size()); ++i) {
        const Token& token = *line[static_cast<std::size_t>(i)];
        if (i < start) {
            continue;
        }
        if (isFlag(token) && plainLower(token.text.substr(0, 2)) == plainLower(flag)) {
            return i;
        }
        if (!token.parts.empty() && token.parts[0] == flag) {
            return i;
        }
    }
    return 0;
}

inline const Token& at(const Line& line, int position) {
    return *line.at(static_cast<std::size_t>(position));
}

inline std::string answer(int result, const std::string& value) {
    return std::to_string(result) + " <" + value + ">";
}

inline std::string joined(const Strings& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += "[" + text + "]";
    }
    return all;
}

inline std::string stringFlag(const Line& line, const std::string& flag, int start, int& position, std::string& value) {
    position = nextFlag(line, flag, start);
    if (position >= 1) {
        const std::string& text = at(line, position).text;
        if (text.size() < 2) {
            return "out of range";
        }
        value = text.size() > 2 && text[2] == '=' ? text.substr(3) : text.substr(2);
    }
    return answer(position, value);
}

inline std::string multiStringFlag(const Line& line, const std::string& flag) {
    Strings values;
    int next = 0;
    for (;;) {
        int position = 0;
        std::string value;
        if (stringFlag(line, flag, next, position, value) == "out of range") {
            return "out of range";
        }
        if (position == 0) {
            return answer(static_cast<int>(values.size()), joined(values));
        }
        values.push_back(value);
        next = position + 1;
    }
}

inline int leadingInt(const std::string& text) {
    const long long number = std::strtoll(text.c_str(), nullptr, 10);
    return static_cast<int>(std::clamp<long long>(number, INT_MIN, INT_MAX));
}

inline std::string intFlag(const Line& line, const std::string& flag, int start) {
    const int position = nextFlag(line, flag, start);
    if (position < start) {
        return answer(0, "77") + "\n";
    }
    if (line.empty()) {
        return "no token";
    }
    const Strings& parts = at(line, position).parts;
    if (parts.size() != 2) {
        return answer(0, "77") + "\n";
    }
    return answer(position, std::to_string(leadingInt(parts[1])));
}

inline std::string rangeFlag(const Line& line, const std::string& shortFlag, const std::string& longFlag, bool whole) {
    for (const std::string& flag : {shortFlag, longFlag}) {
        const int position = nextFlag(line, flag, 0);
        if (position != 0 && at(line, position).parts.size() == 2) {
            const Strings limits = piecesOf(at(line, position).parts[1], ':');
            if (limits.size() == 2) {
                const double first = whole ? leadingInt(limits[0]) : std::strtod(limits[0].c_str(), nullptr);
                const double second = whole ? leadingInt(limits[1]) : std::strtod(limits[1].c_str(), nullptr);
                return answer(1, std::to_string(first) + ":" + std::to_string(second));
            }
        }
    }
    return answer(0, "77.000000:88.000000");
}

inline std::string positional(const Line& line) {
    Strings arguments;
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (!isFlag(*line[i])) {
            arguments.push_back(line[i]->text);
        }
    }
    return arguments.empty() ? "please_provide_file_name, " : arguments[0] + ", " + joined(arguments);
}

}  // namespace flag_scanner_model

#endif
