#ifndef KELPLIB_FRAME_TOKEN_MARK_H
#define KELPLIB_FRAME_TOKEN_MARK_H

#include <string>
#include <string_view>
#include <vector>

#include "frame/flag_key.h"
#include "util/ascii_fold.h"

namespace Kelp {

/// A token in one character, by which a reader finds the few tokens that a question is about without looking at the rest: a
/// flag's letter (the second character of its key, see flagKey) in lower case, NUL for a flag without one, or one of the
/// two below, which no lower-case letter is.
constexpr char markOfArgument = 'A';
constexpr char markOfSlash = 'S';  ///< an argument that begins with "/", as the slash forms of the help flags do

inline char tokenMark(const char* token) {
    if (*token != '-') {
        return *token == '/' ? markOfSlash : markOfArgument;
    }
    return foldAscii(keyLetter(token));
}

/// The mark of the flag tokens that have `name` for their key; noMark when no key has that form, or for null.
constexpr char noMark = 'N';
char keyMark(const char* name);

inline bool isArgumentMark(char mark) {
    return mark == markOfArgument || mark == markOfSlash;
}

/// One of a reader's tokens, which stand one behind the other, each with its NUL.
inline std::string_view tokenAt(const std::string& tokens, const std::vector<std::size_t>& begins,
                                std::size_t position) {
    return {tokens.data() + begins[position], begins[position + 1] - begins[position] - 1};
}

/// The first position at or after `from` that has one of two marks; npos when there is none.
std::size_t findMark(const std::string& marks, char one, char other, std::size_t from);

}  // namespace Kelp

#endif
