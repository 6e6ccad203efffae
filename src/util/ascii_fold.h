#ifndef KELPLIB_UTIL_ASCII_FOLD_H
#define KELPLIB_UTIL_ASCII_FOLD_H

namespace Kelp {

/// The character, or the small letter of one of the 26 capital ones, in every locale.
inline char foldAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Whether two C strings are equal when the 26 ASCII letters count without their case, in every locale.
bool equalIgnoringAsciiCase(const char* left, const char* right);

}  // namespace Kelp

#endif
