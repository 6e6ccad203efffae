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
    for (std::size_t i = 0; i < count; ++i) {
        begins[i + 1] = begins[i] + std::strlen(argv[i]) + 1;
    }
    text.resize(begins[count]);
    marks.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        std::memcpy(&text[begins[i]], argv[i], begins[i + 1] - begins[i]);
        marks[i] = tokenMark(argv[i]);
    }
}

inline std::size_t OptionReader::TokenRecord::size() const {
    return marks.size();
}

inline std::string_view OptionReader::TokenRecord::at(std::size_t position) const {
    return {text.data() + begins[position], begins[position + 1] - begins[position] - 1};
}

inline bool OptionReader::TokenRecord::isArgument(std::size_t position) const {
    return isArgumentMark(marks[position]);
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
