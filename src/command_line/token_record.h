#ifndef KELPLIB_COMMAND_LINE_TOKEN_RECORD_H
#define KELPLIB_COMMAND_LINE_TOKEN_RECORD_H

#include <kelplib/Kelp.h>

#include <algorithm>
#include <cstring>

#include "command_line/argv_tokens.h"
#include "command_line/flag_key.h"

/// \file
/// The reader's token record. Its functions are inline so that the library does not export them, as it exports the other
/// functions of the reader.

namespace Kelp {

inline OptionReader::TokenRecord::TokenRecord(int argc, char** argv) {
    checkTokens(argc, argv);
    const auto count = static_cast<std::size_t>(std::max(argc, 0));
    begins.resize(count + 1);
    marks.resize(count);
    std::size_t* const begin = begins.data();
    char* const mark = marks.data();
    // The system passes all tokens in one block, and one copy takes much less time than one for each token.
    bool adjacent = true;
    for (std::size_t i = 0; i < count; ++i) {
        const char* const token = argv[i];
        adjacent = adjacent && token == argv[0] + begin[i];
        begin[i + 1] = begin[i] + std::strlen(token) + 1;
        mark[i] = tokenMark(token);
    }
    text.reserve(begin[count]);
    for (std::size_t i = 0, next = 0; i < count; i = next) {
        next = adjacent ? count : i + 1;
        text.append(argv[i], begin[next] - begin[i]);
    }
}

inline std::size_t OptionReader::TokenRecord::size() const {
    return marks.size();
}

inline std::string_view OptionReader::TokenRecord::at(std::size_t position) const {
    // data() leaves out the checks of operator[], which take a twentieth of the time that a line takes.
    const std::size_t* const begin = begins.data() + position;
    return {text.data() + begin[0], begin[1] - begin[0] - 1};
}

inline char OptionReader::TokenRecord::mark(std::size_t position) const {
    const char* const mark = marks.data() + position;
    return *mark;
}

inline std::size_t OptionReader::TokenRecord::countArguments(std::size_t from) const {
    const auto begin = marks.begin() + static_cast<std::ptrdiff_t>(from);
    return static_cast<std::size_t>(std::count_if(begin, marks.end(), isArgumentMark));
}

inline std::size_t OptionReader::TokenRecord::find(char mark, char otherMark, std::size_t from) const {
    return findMark(marks, mark, otherMark, from);
}

}  // namespace Kelp

#endif
