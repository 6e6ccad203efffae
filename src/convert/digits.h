#ifndef KELPLIB_CONVERT_DIGITS_H
#define KELPLIB_CONVERT_DIGITS_H

namespace Kelp {

inline bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

inline const char* skipDigits(const char* begin, const char* end) {
    while (begin != end && isDigit(*begin)) {
        ++begin;
    }
    return begin;
}

/// The sign that a number may begin with. Moves `begin` behind it.
/// \returns true for "-"
inline bool readSign(const char*& begin, const char* end) {
    const bool negative = begin != end && *begin == '-';
    if (begin != end && (*begin == '-' || *begin == '+')) {
        ++begin;
    }
    return negative;
}

}  // namespace Kelp

#endif
