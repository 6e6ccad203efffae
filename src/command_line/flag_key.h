#ifndef KELPLIB_COMMAND_LINE_FLAG_KEY_H
#define KELPLIB_COMMAND_LINE_FLAG_KEY_H

#include <string>
#include <string_view>

#include "util/ascii_fold.h"

/// \file
/// The first-letter rule: only the letter after the dash or the two dashes identifies a flag. "-o=x", "--output" and "-O" are
/// the same flag. The rule appears in three forms below: the letter, the key, and the mark.

namespace Kelp {

/// Returns the letter of a flag token; NUL for "-" and "--".
inline char keyLetter(const char* flag) {
    return flag[1] == '-' ? flag[2] : flag[1];
}

/// Returns the key of a flag token, under which an option would be registered: a dash and the letter. "-" has the key "-". The
/// key of "--" has a NUL for its letter, so it is "-" as a C string, but two bytes when it is printed.
/// \param flag  is followed by a NUL
std::string flagKey(std::string_view flag);

inline constexpr char slashMark = 'S';  ///< an argument that starts with "/", as the slash forms of the help flags do
inline constexpr char argumentMark = 'A';  ///< any other positional argument
inline constexpr char noMark = 'N';        ///< no token has this mark

/// Returns the mark of a token: for a flag its letter in lower case (NUL if it has none), for an argument one of the capitals
/// above. Equal flags have equal marks, so a query only looks at the tokens with its mark.
inline char tokenMark(const char* token) {
    // Without jumps, because the processor cannot predict which token is a flag.
    const std::size_t dash = token[0] == '-' ? 1 : 0;
    const std::size_t secondDash = token[dash] == '-' ? 1 : 0;
    const char letter = token[dash + secondDash];
    const char marks[] = {letter == '/' ? slashMark : argumentMark, foldAscii(letter)};
    return marks[dash];
}

inline bool isArgumentMark(char mark) {
    return mark == argumentMark || mark == slashMark;
}

/// Returns the mark of the flags whose key is `name`; noMark if `name` is null or does not have the form of a key.
char keyMark(const char* name);

/// Returns the first position at or after `from` that holds one of two marks; npos if there is none.
std::size_t findMark(const std::string& marks, char mark, char otherMark, std::size_t from);

}  // namespace Kelp

#endif
