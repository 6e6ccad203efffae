#ifndef KELPLIB_UTIL_ASCII_FOLD_H
#define KELPLIB_UTIL_ASCII_FOLD_H

namespace Kelp {

/// Returns the lower case of an ASCII capital letter, and any other character unchanged. Ignores the locale.
inline char foldAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Whether two C strings are equal apart from the case of ASCII letters. Ignores the locale.
bool equalIgnoringAsciiCase(const char* left, const char* right);

}  // namespace Kelp

#endif
